#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The Tarvik authors
# SPDX-License-Identifier: MIT
"""check_hidden_includes.py with files that are written for it."""

import tempfile
import unittest
from pathlib import Path

from check_hidden_includes import violations


class HiddenIncludesTest(unittest.TestCase):
    def setUp(self):
        directory = tempfile.TemporaryDirectory()
        self.addCleanup(directory.cleanup)
        self.directory = Path(directory.name)

    def found(self, text, name=None):
        # A file is read only once.
        source = self.directory / (name or f"{len(list(self.directory.iterdir()))}.cpp")
        source.write_text(text, encoding="utf-8")
        return list(violations(source))

    def test_what_only_the_precompiled_headers_bring_is_found(self):
        self.assertEqual(self.found("QFile file;"), [("QFile", "QFile")])
        self.assertEqual(self.found("std::optional<int> a = std::nullopt;"),
                         [("std::nullopt", "optional"), ("std::optional", "optional")])
        self.assertEqual(self.found("#include <QString>\nQVariantMap map;"), [("QVariantMap", "QVariant")])
        self.assertEqual(self.found("#include <QString>\nvoid f() { qCInfo(logCore); }"), [("qCInfo", "QLoggingCategory")])

    def test_any_way_to_the_header_will_do(self):
        self.assertEqual(self.found("#include <QFile>\nQFile file;"), [])
        (self.directory / "Own.h").write_text("#include <QSaveFile>\n", encoding="utf-8")
        self.assertEqual(self.found('#include "Own.h"\nQFileDevice* file;'), [])
        self.assertEqual(self.found('#include "core/AppSettings.h"\nQObject object;'), [])

    def test_a_declaration_ahead_will_do_where_it_stands(self):
        self.assertEqual(self.found("class QFile;\nvoid read(QFile& file);", "Own.h"), [])
        self.assertEqual(self.found('#include "Own.h"\nvoid read(QFile& file) { file.close(); }'), [("QFile", "QFile")])

    def test_words_outside_the_code_need_nothing(self):
        self.assertEqual(self.found('// QFile\n/* QFile\nQFile */\nauto text = "QFile" R"(QFile)";\n'), [])

    def test_what_the_compiler_misses_by_itself_is_left_to_it(self):
        self.assertEqual(self.found("QQuickWindow* window; std::regex expression;"), [])


if __name__ == "__main__":
    unittest.main()
