"""What the package adds beside the library's answers: suggestions, options by
number, what differs from the defaults and what set it, command lines of
several options, and types that print by name."""

import os
import tempfile
import unittest

import optkw

DEFINITION = """\
threads integer 1 1 1 64 1 1 Worker threads
cfl     double 2 0.5 0 10 1 1 Courant number
window  integer.TWO 3 10 0 100 1 1 A window, lower and upper
method  enumstr 4 auto 1 1 Solution method
 auto    1 Let the solver choose
 barrier 1 Interior point
 simplex 1 Simplex
tags    strlist 5 1 1 A tag; repeat for more
workers synonym threads
"""

CASES = os.path.join(os.path.dirname(__file__), "..", "..", "tests", "fixtures", "bindings",
                     "suggestions.txt")


class SuggestionTest(unittest.TestCase):
    def test_shared_table_agrees_with_the_cpp_header(self):
        checked = 0
        with open(CASES) as cases:
            for line in cases:
                if line.startswith("#") or not line.strip():
                    continue
                typed, candidates, expected = line.rstrip("\n").split("|")
                self.assertEqual(optkw.closest_names(typed, candidates.split(",")),
                                 expected.split(",") if expected else [], typed)
                checked += 1
        self.assertGreater(checked, 10)
        self.assertEqual(optkw.did_you_mean(["a", "b", "c"]), 'did you mean "a", "b" or "c"?')


class ParityTest(unittest.TestCase):
    def setUp(self):
        self.opts = optkw.Options.from_string(DEFINITION)
        self.addCleanup(self.opts.close)

    def test_suggests_names_synonyms_and_values(self):
        self.assertEqual(self.opts.suggest("thraeds"), ["threads"])
        self.assertEqual(self.opts.suggest("workrs"), ["workers"])
        self.assertEqual(self.opts.suggest("nothing_like_it"), [])
        self.assertEqual(self.opts.suggest_value("method", "simplx"), ["simplex"])

    def test_options_by_number(self):
        opts = self.opts
        nr = opts.number("workers")  # a synonym leads to its option
        self.assertEqual((nr, opts.name_of(nr)), (opts.number("threads"), "threads"))
        opts[nr] = 8
        self.assertEqual((opts[nr], opts["threads"]), (8, 8))
        del opts[nr]
        self.assertEqual(opts[nr], 1)
        for bad in (0, 99):
            with self.assertRaises(KeyError):
                opts[bad]

    def test_a_command_line_holds_many_options(self):
        opts = self.opts
        opts.eol_only = True
        self.assertEqual(opts.read_cmdline("threads=4 cfl=2 window 3 7 --tag x"), [])
        self.assertEqual((opts["threads"], opts["cfl"], opts["window"]), (4, 2.0, (3, 7)))
        self.assertEqual(opts["--tag"], ["x"])
        self.assertTrue(opts.eol_only)  # the client's setting for other sources stays

    def test_changed_and_what_set_it(self):
        opts = self.opts
        with tempfile.TemporaryDirectory() as folder:
            path = os.path.join(folder, "run.opt")
            with open(path, "w") as file:
                file.write("threads 1\ncfl 2\nmethod barrier\n")
            opts.read_file(path)
            opts.read_cmdline("cfl=3")
            opts["window"] = (5, 6)
            # threads was set, to its default: assigned, yet not changed.
            self.assertEqual(opts.changed(), ["cfl", "window", "method"])
            self.assertEqual(opts.explain("cfl"), optkw.Explanation("cfl", 3.0, 0.5, "command line"))
            self.assertEqual(opts.explain("method").source, path)
            self.assertEqual(opts.explain("threads"), optkw.Explanation("threads", 1, 1, path))
            self.assertEqual(opts.explain("window").source, "client")
            self.assertIsNone(opts.explain("tags").source)
            del opts["cfl"]
            self.assertEqual(opts.explain("cfl"), optkw.Explanation("cfl", 0.5, 0.5, None))

    def test_types_print_by_name(self):
        self.assertEqual(str(self.opts.option_type("method")), "enumstr")
        messages = self.opts.read_cmdline("threads=x")
        self.assertEqual([str(m.type) for m in messages],
                         ["optMsgFileEnter", "optMsgValueError", "optMsgValueError",
                          "optMsgFileLeave"])


if __name__ == "__main__":
    unittest.main()
