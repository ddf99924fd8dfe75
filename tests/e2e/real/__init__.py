"""What only the real world shows of orvane.exe: its windows as others see them, pixels, the clipboard's owners, processes."""
