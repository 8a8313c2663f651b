#!/usr/bin/env python3
"""numbers_check.py DRIVER [CASES]: compares integers and decimals with what Python calculates.

Numbers are random, from a fixed seed, and rich in what is hard: runs of zeros and nines, numbers
that are close to each other, and lengths around those of limbs. Fails on the first differences.
"""

import math
import random
import subprocess
import sys

MAX_PLACES = 30
random = random.Random(20)


def truncate(dividend, divisor):
    quotient = abs(dividend) // abs(divisor)
    return quotient if (dividend < 0) == (divisor < 0) else -quotient


# Random texts


def digits(longest):
    text = ""
    length = random.randint(1, random.choice((3, 10, 20, 45, longest)))
    while len(text) < length:
        run = random.choice((1, 1, 2, 5, 9, 18))
        text += random.choice(
            ("0" * run, "9" * run, "5" + "0" * run, "".join(random.choices("0123456789", k=run)))
        )
    return text[:length]


def integer_text(longest=120):
    if random.random() < 0.01:
        longest = 1500
    return random.choice(("", "", "-")) + digits(longest)


def decimal_text():
    sign = random.choice(("", "", "-"))
    if random.random() < 0.2:
        return sign + digits(40)
    return sign + digits(40) + "." + digits(random.choice((2, 8, 35)))


def near(text):
    """Another number, often one that differs from text in its last digits."""
    if random.random() < 0.7:
        return None
    return text[:-1] + random.choice("0123456789")


# What CDecimal is to do. A value is (is negative, whole part, digits of the fraction, places).


class Value:
    def __init__(self, negative, whole, fraction, places):
        self.negative, self.whole, self.fraction, self.places = negative, whole, fraction, places
        while self.places > 1 and self.fraction % 10 == 0:
            self.fraction //= 10
            self.places -= 1

    @classmethod
    def parse(cls, text):
        whole, _, fraction = text.lstrip("-").partition(".")
        return cls(text[0] == "-", int(whole), int(fraction or "0"), max(len(fraction), 1)).limit()

    @classmethod
    def unscaled(cls, value, places):
        return cls(value < 0, *divmod(abs(value), 10**places), places)

    def limit(self):
        """Halves go toward zero, and nothing is carried into the whole part."""
        dropped = self.places - MAX_PLACES
        if dropped > 0:
            self.fraction, rest = divmod(self.fraction, 10**dropped)
            self.fraction += rest > 10**dropped // 2
            self.places = MAX_PLACES
        return self

    def at(self, places):
        value = self.whole * 10**places + self.fraction * 10 ** (places - self.places)
        return -value if self.negative else value

    def text(self, places=None):
        sign = "-" if self.negative and (self.whole or self.fraction or places is not None) else ""
        if self.fraction == 0 and places is None:
            return sign + str(self.whole)
        fraction = str(self.fraction).zfill(self.places)
        return f"{sign}{self.whole}.{fraction if places is None else fraction[:places]}"


def both(left, right):
    places = max(left.places, right.places)
    return left.at(places), right.at(places), places


# Cases: each gives an operation, its operands and the answer.


def integer_pair():
    left = integer_text()
    right = near(left) or integer_text()
    operation = random.choice("+-*/%<")
    a, b = int(left), int(right)
    if operation in "/%" and (b == 0 or (operation == "%" and right[0] == "-")):
        answer = f"ERROR: Overflow in operator{operation}."
    elif operation == "%":
        answer = a - b * truncate(a, b)
    elif operation == "<":
        answer = "<=>"[(a > b) - (a < b) + 1]
    else:
        answer = {"+": a + b, "-": a - b, "*": a * b}.get(operation, b and truncate(a, b))
    return "i" + operation, left, right, answer


def integer_root():
    text = digits(60)
    return "is", text, "", math.isqrt(int(text)) if int(text) else "ERROR: Overflow in operator/."


def integer_lenient():
    text = "".join(random.choices(" \t+-0123456789", k=random.randint(0, 12)))
    number = text.strip(" ")
    end = len(number)
    while end > 0 and number[end - 1].isdigit():
        end -= 1
    value = int(number[end:] or "0")
    return "ip", text, "", -value if number.startswith("-") else value


def decimal_pair():
    left = decimal_text()
    right = near(left) or decimal_text()
    operation = random.choice("+-*/<")
    a, b, places = both(Value.parse(left), Value.parse(right))
    if operation == "/":
        if b == 0:
            answer = "ERROR: Overflow in operator/."
        else:
            computed = MAX_PLACES + 2
            quotient = truncate(a * 10**computed, b)
            answer = Value.unscaled(quotient, computed).limit().text()
    elif operation == "*":
        answer = Value.unscaled(a * b, 2 * places).limit().text()
    elif operation == "<":
        answer = "<=>"[(a > b) - (a < b) + 1]
    else:
        answer = Value.unscaled(a + b if operation == "+" else a - b, places).text()
    return "d" + operation, left, right, answer


def decimal_exponent():
    text = decimal_text()
    value = Value.parse(text)
    exponent = random.randint(0, 60)
    places = max(len(text.partition(".")[2]), 1)
    unscaled = int(text.replace(".", "")) * (1 if "." in text else 10)
    if random.random() < 0.5:
        value = Value.unscaled(unscaled * 10**exponent, places).limit()
        sign = random.choice(("e", "E+", "e -+ "))
    else:
        computed = MAX_PLACES + 2
        quotient = truncate(unscaled * 10**computed, 10 ** (exponent + places))
        value = Value.unscaled(quotient, computed).limit()
        sign = random.choice(("e-", "E +-"))
    value = Value(value.negative, value.whole, value.fraction, value.places)  # without zeros
    return "dp", text + sign + str(exponent), "", value.text()


def decimal_places():
    text = decimal_text()
    value = Value.parse(text)
    places = random.randint(0, 20)
    half = Value(value.negative, 0, 5, places + 1)
    a, b, common = both(value, half)
    return "ds", text, str(places), Value.unscaled(a + b, common).text(places)


def decimal_double():
    text = random.choice(("", "-")) + digits(30) + "." + digits(25)
    return "ds", text, "", "%.17g" % float(Value.parse(text).text())


KINDS = (
    [integer_pair] * 8
    + [integer_root, integer_lenient]
    + [decimal_pair] * 8
    + [decimal_exponent, decimal_places, decimal_double]
)


def main():
    if hasattr(sys, "set_int_max_str_digits"):
        sys.set_int_max_str_digits(0)
    count = int(sys.argv[2]) if len(sys.argv) > 2 else 150_000
    cases = [random.choice(KINDS)() for _ in range(count)]
    lines = "".join(f"{operation}|{left}|{right}\n" for operation, left, right, _ in cases)
    run = subprocess.run([sys.argv[1]], input=lines, capture_output=True, text=True, check=True)
    answers = run.stdout.splitlines()
    wrong = [case + (answer,) for case, answer in zip(cases, answers) if str(case[3]) != answer]
    for operation, left, right, expected, answer in wrong[:10]:
        print(f"{operation} of [{left}] and [{right}]:\n  {expected}, but got\n  {answer}")
    print(f"{count} cases, {len(wrong)} differences")
    return bool(wrong) or len(answers) != count


sys.exit(main())
