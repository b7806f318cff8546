"""The optkw package on the options of Heron, an imaginary least-squares solver."""

import os
import subprocess
import sys
import tempfile
import unittest

import optkw
from optkw import MessageType

DEFINITION = """\
numerics group 1 1 Numerical settings
maxiter integer 1 100 1 10000 1 1 Iteration limit
tol     double 2 1e-6 0 1 1 1 Convergence tolerance
method  enumstr 3 gauss 1 1 Step method
 gauss  1 Gauss-Newton steps
 dogleg 1 Trust-region dogleg steps
logfile string 4 "heron.log" 1 1 Name of the log file
verbose boolean 5 0 1 1 Print a line per iteration
damping double.TWO 7 0.001 0 10 1 1 Smallest and largest damping
watch   strlist 8 1 1 A residual to watch; repeat for more
iters   synonym maxiter
"""


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

    def test_whole_cycle(self):
        opts = self.opts
        self.assertEqual(dict(opts.items()), {  # typed, and only options with values
            "maxiter": 100, "tol": 1e-6, "method": "gauss", "logfile": "heron.log",
            "verbose": 0, "damping": (0.001, 0.001), "watch": []})
        self.assertIs(type(opts["maxiter"]), int)
        self.assertEqual(opts.read_string("maxiter 50\r\n* note\n\ntol = 1e-8\nwatch r1"), [])
        more = self.path("more.opt", "method DOGLEG\ndamping 0.01 5\n")
        self.assertEqual(opts.read_file(more), [])
        opts["watch"] = ["r2", "r3"]
        opts["verbose"] = True
        opts["damping"] = (None, 8)
        logfile = "r\u00e9sum\u00e9 \udcff.log"  # an invalid byte comes back as it went
        opts["logfile"] = logfile
        self.assertEqual(dict(opts.items()), {
            "maxiter": 50, "tol": 1e-8, "method": "dogleg", "logfile": logfile,
            "verbose": 1, "damping": (0.01, 8.0), "watch": ["r1", "r2", "r3"]})
        del opts["iters"]
        self.assertEqual((opts["maxiter"], opts.is_set("maxiter")), (100, False))
        self.assertEqual(opts.messages, [])

        saved = self.path("saved.opt")
        self.assertIsNone(opts.write(saved))
        with open(saved, errors="surrogateescape") as file:
            self.assertEqual(file.read(), opts.write())
        with optkw.Options(self.path("heron.def", DEFINITION)) as again:
            self.assertEqual(again.read_file(saved), [])
            self.assertEqual(again.items(), opts.items())
        with self.assertRaises(ValueError):  # the block closed the handle
            again["maxiter"]
        self.assertIn("closed", repr(again))

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

    def test_unknown_names_and_wrong_types(self):
        for name in ("nosuch", "x" * 300):
            with self.assertRaises(KeyError):
                self.opts[name]
            with self.assertRaises(KeyError):
                self.opts[name] = 1
        self.assertNotIn("nosuch", self.opts)
        with self.assertRaises(TypeError):
            self.opts["maxiter"] = 1.5
        with self.assertRaises(ValueError):
            self.opts["logfile"] = "x" * 256
        self.assertEqual(self.opts.messages, [])

    def test_help_and_files_that_cant_be_opened(self):
        lines = self.opts.help("method")
        self.assertEqual(lines[0], "method: Step method")
        self.assertTrue(any("Trust-region dogleg steps" in line for line in lines))
        self.assertEqual(self.opts.help("iters")[0], "iters is a synonym for maxiter")
        self.assertIn("Numerical settings", self.opts.help())
        for action, text in ((self.opts.read_file, "Cannot open parameter file"),
                             (self.opts.write, "Cannot write parameter file")):
            with self.assertRaises(FileNotFoundError) as caught:
                action(self.path("no/such.opt"))
            self.assertIn(text, str(caught.exception))


class LibraryLoadingTest(unittest.TestCase):
    def test_optkw_lib_names_the_library(self):
        # An open handle at exit must not disturb the exit.
        code = ("import optkw\nopts = optkw.Options.from_string('n integer 1 1 0 9 1 1 N')\n"
                "print(optkw.library_path(), opts['n'])")
        with tempfile.TemporaryDirectory() as folder:
            library = os.path.join(folder, "liboptkw-link.so")  # found by no other road
            os.symlink(optkw.library_path(), library)
            env = dict(os.environ, OPTKW_LIB=library,
                       PYTHONPATH=os.path.dirname(os.path.dirname(optkw.__file__)))
            done = subprocess.run([sys.executable, "-c", code], env=env, capture_output=True,
                                  text=True, timeout=60)
        self.assertEqual((done.returncode, done.stdout), (0, f"{library} 1\n"), done.stderr)

    def load_error(self, **variables):
        """What loading the library says in a fresh interpreter, by this
        package (which carries no library) with the environment changed."""
        env = {key: value for key, value in os.environ.items()
               if key not in ("OPTKW_LIB", "LD_LIBRARY_PATH")}
        env.update(variables, PYTHONPATH=os.path.dirname(os.path.dirname(optkw.__file__)))
        code = ("import optkw\ntry:\n    print(optkw.library_path())\n"
                "except optkw.LibraryNotFoundError as fault:\n    print(fault)")
        done = subprocess.run([sys.executable, "-c", code], env=env, capture_output=True,
                              text=True, timeout=60)
        self.assertEqual(done.returncode, 0, done.stderr)
        return done.stdout

    def test_the_error_lists_every_place_tried_in_order(self):
        # OPTKW_LIB, when set, is the only place: no quiet fallback to another library.
        said = self.load_error(OPTKW_LIB="/nonexistent/liboptkw.so")
        self.assertIn("OPTKW_LIB=/nonexistent/liboptkw.so:", said)
        self.assertNotIn("package folder", said)
        said = self.load_error()
        if not said.startswith("cannot load"):
            self.skipTest(f"this system has a liboptkw: {said}")
        places = ["OPTKW_LIB: not set", "the package folder:", "installed beside the package:",
                  "find_library('optkw')", "liboptkw.so.2 on the loader's search path:"]
        found = [said.find(place) for place in places]
        self.assertTrue(all(at >= 0 for at in found) and found == sorted(found), said)


if __name__ == "__main__":
    unittest.main()
