#!/usr/bin/env python3
"""scripts/phone-formats makes of each line of a plan what the top of phone-plans.txt says."""
import importlib.machinery
import importlib.util
import pathlib
import unittest

SCRIPT = pathlib.Path(__file__).resolve().parent.parent.parent / "scripts/phone-formats"


def load():
    loader = importlib.machinery.SourceFileLoader("phone_formats", str(SCRIPT))
    module = importlib.util.module_from_spec(importlib.util.spec_from_loader("phone_formats", loader))
    loader.exec_module(module)
    return module


FORMATS = load()
HEADER = "[1] GB JE United Kingdom, +44, Ofcom, The National Telephone Numbering Plan"
# A line of a plan, and the patterns of its country in their order.
LINES = [
    ("0|### ### ####: 121", ["+44 121 ### ####", "0121 ### ####"]),
    ("0|## ###: 8-10", SystemExit),
    ("0|## ###: 08-10", ["+44 08 ###", "+44 09 ###", "+44 10 ###", "008 ###", "009 ###", "010 ###"]),
    ("|#### ####: 8", ["+44 8### ####", "8### ####"]),
    ("(0|#) #### ####: 2", ["+44 2 #### ####", "(02) #### ####"]),
    ("(0|-#) ###: 5", ["+44 5 ###", "(0-5) ###"]),
    ("0|## <2-3>: 30", ["+44 30 ##", "+44 30 ###", "030 ##", "030 ###"]),
    ("####-####", ["####-####"]),
    ("0## #: 01 02", ["01# #", "02# #"]),
    ("+44 9 ## #: 4491", ["+44 9 1# #"]),
    ("0|## ############: 30", ["030 ############"]),  # too long to be dialled from abroad
    ("0|#: 12", SystemExit),
]


class PhoneFormatsTest(unittest.TestCase):
    def patterns_of(self, line):
        plan = FORMATS.Plan(HEADER)
        plan.add(line)
        return plan.set()

    def test_lines(self):
        for line, expected in LINES:
            with self.subTest(line):
                if expected is SystemExit:
                    self.assertRaises(SystemExit, self.patterns_of, line)
                else:
                    self.assertEqual(self.patterns_of(line), expected)

    def test_header(self):
        plan = FORMATS.Plan(HEADER)
        self.assertEqual((plan.index, plan.countries, plan.name, plan.code),
                         ("1", "GB JE", "United Kingdom", "44"))
        self.assertRaises(SystemExit, FORMATS.Plan, "[1] United Kingdom, +44, Ofcom")

    def test_longest_codes_come_first(self):
        plan = FORMATS.Plan(HEADER)
        plan.add("0#### ######")
        plan.add("0### ### ####: 0121")
        self.assertEqual(plan.set(), ["0121 ### ####", "0#### ######"])

    def test_all_plans_are_read(self):
        plans = FORMATS.read_plans()
        self.assertGreaterEqual(len(plans), 60)
        self.assertTrue(all(plan.patterns for plan in plans))


if __name__ == "__main__":
    unittest.main()
