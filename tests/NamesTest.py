#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The Tarvik authors
# SPDX-License-Identifier: MIT
"""check_names.py with texts that are written for it."""

import tempfile
import unittest
from pathlib import Path

from check_names import clashes, types_in

HEADER = "namespace Tarvik {\n\nclass Reader;\n\n/// It.\nclass Label final : public Text {\n};\n\n} // namespace Tarvik\n"


class NamesTest(unittest.TestCase):
    def test_types_have_the_names_of_their_namespaces(self):
        self.assertEqual(list(types_in(HEADER)), ["Tarvik::Label"])
        self.assertEqual(list(types_in("namespace Tarvik::Lid {\nstruct Facts {\n};\n} // namespace Tarvik::Lid\nenum class A {\n")),
                         ["Tarvik::Lid::Facts", "A"])
        self.assertEqual(list(types_in("struct Label::Part {\n")), ["Label::Part"])

    def test_what_a_file_keeps_to_itself_is_left_alone(self):
        own = "namespace Tarvik {\nnamespace {\nstruct Label {\n};\n} // namespace\nstruct Text {\n};\n} // namespace Tarvik\n"
        self.assertEqual(list(types_in(own)), ["Tarvik::Text"])

    def test_two_of_one_name_clash(self):
        with tempfile.TemporaryDirectory() as directory:
            one, two, three = (Path(directory, name) for name in ("One.h", "Two.h", "Three.h"))
            one.write_text(HEADER, encoding="utf-8")
            two.write_text(HEADER.replace("class Label", "struct Label"), encoding="utf-8")
            three.write_text(HEADER.replace("Tarvik", "Other"), encoding="utf-8")
            self.assertEqual(clashes((one, two, three)), {"Tarvik::Label": [one, two]})
            self.assertEqual(clashes((one, three)), {})


if __name__ == "__main__":
    unittest.main()
