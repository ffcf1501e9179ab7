#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The Tarvik authors
# SPDX-License-Identifier: MIT
"""Every language says everything: the catalogues, the desktop entry, the metainfo and what polkit asks. Usage: NAME"""
import json
import pathlib
import re
import tempfile
import unittest
import xml.etree.ElementTree as tree
from collections import Counter
from importlib.machinery import SourceFileLoader
from importlib.util import module_from_spec, spec_from_loader

ROOT = pathlib.Path(__file__).resolve().parents[2]
PACKAGING = ROOT / "packaging"
# A text in a source that is to be translated. lupdate does not understand all of C++.
WRITTEN = re.compile(r'''(?:\bqsTr\(|\b(?:translate|QT_TRANSLATE_N?_?NOOP)\(\s*"\w+",)\s*("(?:[^"\\]|\\.)*")''')
PLACEHOLDER = re.compile(r"%L?[1-9n]")
NAMES = re.compile(r"Tarvik|JSON|pkexec|Cursor|Zed|Warp|~/|\*\*")
ENDS = ("…", ".", ":")
WIDE_ENDS = {"。": ".", "：": ":"}
# What a typewriter has instead, and places where a line must not break.
TYPED = re.compile(r"""\.\.\.|['"]| [:;!?»…]| %(?![1-9n])|« """)


def load_script(name):
    """A program without ".py" as a module."""
    loader = SourceFileLoader(name, str(ROOT / "scripts" / name))
    module = module_from_spec(spec_from_loader(name, loader))
    loader.exec_module(module)
    return module


translations = load_script("translations")


def read(path):
    """The translations of each text, with a form for each number that the language tells apart; none for an unfinished one."""
    catalogue = {}
    for context in tree.parse(path).iter("context"):
        for message in context.iter("message"):
            translation = message.find("translation")
            key = (context.findtext("name"), message.findtext("source"), message.findtext("comment"), message.get("numerus"))
            forms = [form.text or "" for form in translation] if key[3] else [translation.text or ""]
            catalogue[key] = forms if translation.get("type") is None else ["" for _ in forms]
    return catalogue


def end(text):
    last = text[-1:]
    last = WIDE_ENDS.get(last, last)
    return last if last in ENDS else ""


class CataloguesTest(unittest.TestCase):
    maxDiff = None

    @classmethod
    def setUpClass(cls):
        cls.files = {path.stem.removeprefix("tarvik_"): path for path in sorted((ROOT / "translations").glob("*.ts"))}
        cls.catalogues = {language: read(path) for language, path in cls.files.items()}
        with tempfile.TemporaryDirectory() as folder:
            fresh = [pathlib.Path(folder) / path.name for path in cls.files.values()]
            translations.extract(*fresh)
            cls.fresh = {path.stem.removeprefix("tarvik_"): read(path) for path in fresh}

    def wrong(self, is_wrong):
        """The translations of which is_wrong(language, what the English of this system says, translation) is true."""
        english = self.catalogues["en"]
        return [f"{language}: {form}" for language, catalogue in self.catalogues.items() for key, forms in catalogue.items()
                for form in forms if key in english and is_wrong(language, english[key][0], form)]

    def test_there_are_the_languages(self):
        self.assertLessEqual({"de", "en", "es", "fr", "ja", "zh_CN"}, self.files.keys())

    def test_every_text_of_the_sources_is_there_and_no_other(self):
        for language, fresh in self.fresh.items():
            with self.subTest(language=language):
                self.assertGreater(len(fresh), 150)
                self.assertEqual(set(self.catalogues[language]) ^ set(fresh), set())

    def test_every_text_of_the_sources_has_been_found(self):
        found = {re.sub(r"\s+", " ", source) for _, source, _, _ in self.fresh["en"]}
        written = set()
        for path in sorted(path for kind in ("cpp", "h", "qml") for path in (ROOT / "src").rglob(f"*.{kind}")):
            text = path.read_text(encoding="utf-8")
            self.assertIsNone(re.search(r"\btranslate\((?!\s*\"|const|\))", text), f"{path}: a context that only the program knows")
            written.update(json.loads(match[1]) for match in WRITTEN.finditer(text))
        self.assertGreater(len(written), 150)
        self.assertEqual(written - found, set())

    def test_every_text_is_translated_in_every_form_that_the_language_has(self):
        for language, fresh in self.fresh.items():
            for key, forms in fresh.items():
                with self.subTest(language=language, text=key[1]):
                    self.assertEqual([bool(form.strip()) for form in self.catalogues[language].get(key, [])], [True] * len(forms))

    def test_what_is_put_into_a_text_and_names_are_kept(self):
        def parts(text):
            return sorted(PLACEHOLDER.findall(text) + NAMES.findall(text))
        self.assertEqual(self.wrong(lambda _, english, form: parts(form) != parts(english)), [])
        for (_, source, _, _), forms in self.catalogues["en"].items():
            self.assertEqual(sorted(PLACEHOLDER.findall(forms[0])), sorted(PLACEHOLDER.findall(source)))

    def test_a_text_ends_as_it_does_in_english(self):
        self.assertEqual(self.wrong(lambda _, english, form: end(form) != end(english) or form != form.strip()), [])

    def test_only_signs_that_people_print_are_used(self):
        # English ones are as in the sources.
        self.assertEqual(self.wrong(lambda language, _, form: language != "en" and TYPED.search(form)), [])

    def test_no_language_speaks_of_another_system(self):
        self.assertGreater(len([source for _, source, _, _ in self.catalogues["en"] if translations.FOREIGN.search(source)]), 10)
        self.assertEqual(self.wrong(lambda _, __, form: translations.FOREIGN.search(form)), [])

    def test_the_english_of_this_system_differs_only_where_the_sources_speak_of_another(self):
        for (_, source, _, _), forms in self.catalogues["en"].items():
            if not translations.FOREIGN.search(source) and source != "QT_LAYOUT_DIRECTION":
                self.assertEqual(set(forms), {source})


class PackagingTest(unittest.TestCase):
    def setUp(self):
        self.languages = {path.stem.removeprefix("tarvik_") for path in (ROOT / "translations").glob("*.ts")} - {"en"}

    def test_the_desktop_entry_speaks_every_language(self):
        lines = (PACKAGING / "com.morvanta.Tarvik.desktop.in").read_text(encoding="utf-8").splitlines()
        keys = {line.partition("=")[0] for line in lines}
        values = dict(line.partition("=")[::2] for line in lines if "=" in line)
        for key in "GenericName", "Comment", "Keywords":
            with self.subTest(key=key):
                self.assertEqual({name for name in keys if name.startswith(f"{key}[")}, {f"{key}[{language}]" for language in self.languages})
                for language in self.languages:
                    self.assertEqual(values[f"{key}[{language}]"].endswith(";"), key == "Keywords")

    def check(self, name, tags):
        """Below each element its translations follow."""
        language_key = "{http://www.w3.org/XML/1998/namespace}lang"
        found = Counter()
        for parent in tree.parse(PACKAGING / name).iter():
            tag, spoken = None, []
            for child in [*parent, None]:
                language = child.get(language_key) if child is not None else None
                if language:
                    spoken.append(language)
                    self.assertTrue(child.text.strip())
                    continue
                if tag in tags:
                    found[tag] += 1
                    self.assertEqual(sorted(spoken), sorted(self.languages), f"{name}: {tag}")
                tag, spoken = (None, []) if child is None else (child.tag, [])
        return found

    def test_the_metainfo_speaks_every_language(self):
        found = self.check("com.morvanta.Tarvik.metainfo.xml", ("summary", "p", "li"))
        self.assertEqual([found[tag] for tag in ("summary", "p", "li")], [1, 1, 4])

    def test_polkit_asks_in_every_language(self):
        found = self.check("helper/com.morvanta.Tarvik.helper.policy", ("description", "message"))
        self.assertEqual([found[tag] for tag in ("description", "message")], [1, 1])


if __name__ == "__main__":
    unittest.main()
