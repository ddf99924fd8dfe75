"""Numbers of platform calls as formulas in the sizes of a scene."""


class Formula:
    """A sum of whole multiples of sizes and of their products: 4 + 3·w + 6·t·w."""

    def __init__(self, terms=None):
        self.terms = {sizes: factor for sizes, factor in (terms or {}).items() if factor}

    @staticmethod
    def of(value):
        return value if isinstance(value, Formula) else Formula({(): value})

    def __add__(self, other):
        terms = dict(self.terms)
        for sizes, factor in Formula.of(other).terms.items():
            terms[sizes] = terms.get(sizes, 0) + factor
        return Formula(terms)

    __radd__ = __add__

    def __mul__(self, other):
        if isinstance(other, Calls):
            return NotImplemented
        terms = {}
        for left, left_factor in self.terms.items():
            for right, right_factor in Formula.of(other).terms.items():
                sizes = tuple(sorted(left + right))
                terms[sizes] = terms.get(sizes, 0) + left_factor * right_factor
        return Formula(terms)

    __rmul__ = __mul__

    def __sub__(self, other):
        return self + Formula.of(other) * -1

    def __rsub__(self, other):
        return Formula.of(other) + self * -1

    def value(self, sizes):
        total = 0
        for names, factor in self.terms.items():
            for name in names:
                factor *= sizes[name]
            total += factor
        return total

    def __str__(self):
        written = ""
        for sizes, factor in sorted(self.terms.items(), key=lambda term: (len(term[0]), term[0])):
            size = abs(factor)
            body = "·".join(([str(size)] if size != 1 or not sizes else []) + list(sizes))
            sign = "-" if factor < 0 else "+"
            written += f" {sign} {body}" if written else ("-" if factor < 0 else "") + body
        return written or "0"


def size(name):
    """A size of the scene: how many windows, tabs, elements or checks."""
    return Formula({(name,): 1})


class Calls:
    """How often each operation of the platform is called, by name."""

    def __init__(self, **counts):
        self.counts = {}
        for name, count in counts.items():
            self.counts[name] = Formula.of(count)

    def __add__(self, other):
        total = Calls()
        for name in {**self.counts, **other.counts}:
            total.counts[name] = self.counts.get(name, Formula()) + other.counts.get(name, Formula())
        return total

    def __mul__(self, times):
        product = Calls()
        product.counts = {name: count * times for name, count in self.counts.items()}
        return product

    __rmul__ = __mul__

    def __sub__(self, other):
        return self + other * -1

    def values(self, sizes):
        """The numbers at these sizes, without those that are 0."""
        numbers = {name: count.value(sizes) for name, count in self.counts.items()}
        return {name: number for name, number in numbers.items() if number}


def calls(*names, **counts):
    """One call of each of `names`, and `counts` of the others. "automation." and the like stand for interfaces."""
    made = Calls(**counts)
    for name in names:
        made.counts[name] = made.counts.get(name, Formula()) + 1
    return made


def total(*parts):
    whole = Calls()
    for part in parts:
        whole = whole + part
    return whole
