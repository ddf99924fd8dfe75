"""Plays scenarios with orvane.exe under Wine and compares them with the simulation."""
