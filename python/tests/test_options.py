"""The optkw package on the options of Heron, an imaginary least-squares solver."""

import os
import subprocess
import sys
import tempfile
import unittest

import optkw
from optkw import MessageType

DEFINITION = """\
* Heron, an imaginary solver for least-squares problems.
general  group 1 1 General settings
numerics group 2 1 Numerical settings
maxiter integer 1 100 1 10000 1 1 Iteration limit
tol     double 2 1e-6 0 1 1 2 Convergence tolerance
method  enumstr 3 gauss 1 2 Step method
 gauss  1 Gauss-Newton steps
 lm     1 Levenberg-Marquardt steps
 dogleg 1 Trust-region dogleg steps
logfile string 4 "heron.log" 1 1 Name of the log file
verbose boolean 5 0 1 1 Print a line per iteration
scaling enumint 6 1 1 2 Column scaling
 0 1 None
 1 1 By column norms
damping double.TWO 7 0.001 0 10 1 2 Smallest and largest damping
watch   strlist 8 1 1 A residual to watch; repeat for more
quiet   macro 1 1 Switch off the iteration lines
 verbose
include immediate ReadFile 1 1 Read further parameters from a file
iters   synonym maxiter
"""

DEFAULTS = {"maxiter": 100, "tol": 1e-6, "method": "gauss", "logfile": "heron.log",
            "verbose": 0, "scaling": 1, "damping": (0.001, 0.001), "watch": []}


class OptionsTest(unittest.TestCase):
    def setUp(self):
        self.opts = optkw.Options.from_string(DEFINITION)
        self.addCleanup(self.opts.close)
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.dir = folder.name

    def path(self, name, text=None):
        path = os.path.join(self.dir, name)
        if text is not None:
            with open(path, "w") as file:
                file.write(text)
        return path

    def test_defaults_come_typed_and_only_for_options_with_values(self):
        self.assertEqual(dict(self.opts.items()), DEFAULTS)
        self.assertIs(type(self.opts["maxiter"]), int)
        self.assertIs(type(self.opts["tol"]), float)
        self.assertEqual(list(self.opts), list(DEFAULTS))  # no macro, immediate, Help
        self.assertEqual(len(self.opts), len(DEFAULTS))
        self.assertFalse(self.opts.is_set("maxiter"))
        self.assertEqual((self.opts.errors, self.opts.warnings, self.opts.messages), (0, 0, []))

    def test_parameter_text_from_a_string(self):
        added = self.opts.read_string(
            "maxiter 50\r\n* a comment line\n\ntol = 1e-8\nmethod LM\n"
            "watch r1\nwatch r2\ndamping 0.01 5\nlogfile my run.log")
        self.assertEqual(added, [])
        self.assertEqual(dict(self.opts.items()), {
            "maxiter": 50, "tol": 1e-8, "method": "lm", "logfile": "my run.log",
            "verbose": 0, "scaling": 1, "damping": (0.01, 5.0), "watch": ["r1", "r2"]})
        self.assertTrue(self.opts.is_set("iters"))
        self.assertEqual(self.opts["iters"], 50)

    def test_assignment_converts_by_type(self):
        opts = self.opts
        opts["iters"] = 70
        opts["verbose"] = True
        opts["tol"] = 1
        opts["scaling"] = "0"
        opts["logfile"] = "r\u00e9sum\u00e9 \udcff.log"  # an invalid byte comes back as it went
        opts["damping"] = (None, 8)
        self.assertTrue(opts.is_set("damping"))
        opts["watch"] = ["a", "b"]
        opts["watch"] = "c"
        self.assertEqual(
            [opts[n] for n in ("maxiter", "verbose", "tol", "scaling", "logfile", "damping", "watch")],
            [70, 1, 1.0, 0, "r\u00e9sum\u00e9 \udcff.log", (0.001, 8.0), ["a", "b", "c"]])
        opts["quiet"] = "no"  # a macro sets its members
        self.assertEqual(opts["verbose"], 0)
        del opts["maxiter"]
        self.assertEqual((opts["maxiter"], opts.is_set("maxiter")), (100, False))
        self.assertEqual(opts.messages, [])

    def test_refused_values_raise_with_the_messages_of_that_assignment(self):
        self.opts.read_string("nosuch 1")
        with self.assertRaises(optkw.OptionError) as caught:
            self.opts["method"] = "newton"
        messages = caught.exception.messages
        self.assertIn('"newton"', messages[0].text)
        self.assertEqual({m.type for m in messages}, {MessageType.VALUE_ERROR})
        self.assertIn(messages[0].text, str(caught.exception))
        self.assertEqual(self.opts["method"], "gauss")
        for name, value in (("maxiter", 0), ("maxiter", 2**32 + 50), ("maxiter", "many"),
                            ("damping", (20, 5))):  # out of range, beyond 32 bits, no number
            with self.subTest(value=value), self.assertRaises(optkw.OptionError):
                self.opts[name] = value
        self.opts.set_no_bounds()
        self.opts["maxiter"] = 20000
        self.assertEqual(self.opts["maxiter"], 10000)
        self.assertGreater(self.opts.warnings, 0)

    def test_wrong_names_and_types(self):
        for name in ("nosuch", "x" * 300):
            with self.assertRaises(KeyError):
                self.opts[name]
            with self.assertRaises(KeyError):
                self.opts[name] = 1
        self.assertIn("iters", self.opts)
        self.assertNotIn("nosuch", self.opts)
        for name, value in (("maxiter", 1.5), ("tol", [1]), ("method", 2), ("include", "x")):
            with self.subTest(name=name), self.assertRaises(TypeError):
                self.opts[name] = value
        with self.assertRaises(TypeError):
            self.opts["quiet"]
        with self.assertRaises(ValueError):
            self.opts["damping"] = (1, 2, 3)
        with self.assertRaises(ValueError):
            self.opts["logfile"] = "x" * 256
        self.assertEqual(self.opts.messages, [])

    def test_messages_of_parameter_files(self):
        other = self.path("other.opt", "tol 1e-4\n")
        main = self.path("heron.opt", f"maxiter 20\n\nnosuch 1\ninclude {other}\n")
        added = self.opts.read_file(main)
        self.assertEqual((self.opts["maxiter"], self.opts["tol"]), (20, 1e-4))
        self.assertEqual([m.type for m in added], [MessageType.FILE_ENTER,
                                                   MessageType.USER_ERROR, MessageType.FILE_LEAVE])
        self.assertIn("line 3", added[1].text)
        self.assertEqual(self.opts.messages, added)
        self.assertEqual(self.opts.errors, 1)
        self.opts.clear_messages()
        self.assertEqual((self.opts.errors, self.opts.messages), (0, []))
        with self.assertRaises(FileNotFoundError) as caught:
            self.opts.read_file(self.path("missing.opt"))
        self.assertIn("Cannot open parameter file", str(caught.exception))
        self.assertEqual(caught.exception.filename, self.path("missing.opt"))

    def test_command_line_values_are_single_tokens(self):
        self.opts.read_cmdline(["-maxiter=7", "tol", "1e-3", "/verbose=1"])
        self.opts.read_cmdline("method dogleg logfile=a.log")
        self.assertEqual([self.opts[n] for n in ("maxiter", "tol", "verbose", "method", "logfile")],
                         [7, 1e-3, 1, "dogleg", "a.log"])
        self.assertEqual(self.opts.errors, 0)
        self.assertTrue(self.opts.eol_only)  # switched back after the read

    def test_help(self):
        lines = self.opts.help("method")
        self.assertEqual(lines[0], "method: Step method")
        self.assertTrue(any("Trust-region dogleg steps" in line for line in lines))
        self.assertEqual(self.opts.help("iters")[0], "iters is a synonym for maxiter")
        self.assertIn("Numerical settings", self.opts.help())

    def test_write_and_read_back(self):
        self.opts.read_string("maxiter 42\nmethod dogleg\nlogfile a b.log\ndamping 0.5 2\nwatch r1")
        text = self.opts.write()
        self.assertIn("maxiter=42", text.splitlines())
        path = self.path("saved.opt")
        self.assertIsNone(self.opts.write(path))
        with open(path) as file:
            self.assertEqual(file.read(), text)
        with optkw.Options.from_string(DEFINITION) as again:
            self.assertEqual(again.read_file(path), [])
            self.assertEqual(again.items(), self.opts.items())
        with self.assertRaises(FileNotFoundError) as caught:
            self.opts.write(self.path("no/such/dir.opt"))
        self.assertIn("Cannot write parameter file", str(caught.exception))

    def test_faulty_or_missing_definitions(self):
        with self.assertRaises(optkw.DefinitionError) as caught:
            optkw.Options.from_string("a integer 1 5 0 3 1 1 A\na integer 2 1 0 3 1 1 B\n")
        types = {m.type for m in caught.exception.messages}
        self.assertEqual(types, {MessageType.DEFINE_ERROR})
        self.assertIn("line 2: Duplicate option", str(caught.exception))
        with self.assertRaises(FileNotFoundError):
            optkw.Options(self.path("missing.def"))

    def test_context_manager_frees_the_handle(self):
        with optkw.Options.from_string(DEFINITION) as opts:
            opts["maxiter"] = 3
        with self.assertRaises(ValueError):
            opts["maxiter"]
        opts.close()
        self.assertIn("closed", repr(opts))


class LibraryLoadingTest(unittest.TestCase):
    def run_python(self, code, library):
        env = dict(os.environ, OPTKW_LIB=library,
                   PYTHONPATH=os.path.dirname(os.path.dirname(optkw.__file__)))
        return subprocess.run([sys.executable, "-c", code], env=env, capture_output=True,
                              text=True, timeout=60)

    def test_optkw_lib_names_the_library(self):
        library = optkw.library_path()
        # An open handle at exit must not disturb the exit.
        done = self.run_python("import optkw\nopts = optkw.Options.from_string('n integer 1 1 0 9 1 1 N')\n"
                               "print(optkw.library_path(), opts['n'])", library)
        self.assertEqual((done.returncode, done.stdout), (0, f"{library} 1\n"), done.stderr)

    def test_a_missing_library_says_what_was_tried(self):
        done = self.run_python("import optkw\ntry:\n optkw.Options('x.def')\n"
                               "except optkw.LibraryNotFoundError as e:\n print(e)", "/no/liboptkw.so")
        self.assertEqual(done.returncode, 0, done.stderr)
        self.assertIn("OPTKW_LIB=/no/liboptkw.so", done.stdout)


if __name__ == "__main__":
    unittest.main()
