"""A picture of the whole display, pixel by pixel."""
import subprocess


class Picture:
    """Colours are 0xRRGGBB."""

    def __init__(self, width, height, octets):
        if len(octets) != width * height * 3:
            raise ValueError(f"{len(octets)} bytes are no picture of {width} x {height}")
        self.width, self.height, self._octets = width, height, octets

    @classmethod
    def of(cls, display, screen):
        taken = subprocess.run(["import", "-display", display, "-window", "root", "-depth", "8", "rgb:-"], check=True,
                               stdin=subprocess.DEVNULL, stdout=subprocess.PIPE)
        return cls(screen.width, screen.height, taken.stdout)

    def colour(self, x, y):
        place = (y * self.width + x) * 3
        return int.from_bytes(self._octets[place:place + 3], "big")

    def column(self, x, top, bottom):
        """Runs of one colour downwards: (colour, how many pixels)."""
        runs = []
        for y in range(top, bottom):
            colour = self.colour(x, y)
            if runs and runs[-1][0] == colour:
                runs[-1] = (colour, runs[-1][1] + 1)
            else:
                runs.append((colour, 1))
        return runs

    def has_colour(self, colour, left, top, right, bottom):
        return any(self.colour(x, y) == colour for y in range(top, bottom) for x in range(left, right))
