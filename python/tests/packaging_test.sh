#!/usr/bin/env bash
# The package as users get it, each time used from a folder outside the source
# tree with no OPTKW_LIB and no PYTHONPATH of ours:
#   1. pip install, offline and without build isolation, into a venv: the
#      package must carry the library it built; a copy of the python folder
#      that can't reach the C++ sources must fail with a clear message;
#   2. cmake --install into a prefix: the package must find the library
#      installed beside it, give way to a library bundled in its folder, and
#      to OPTKW_LIB before both.
# The source tree stays untouched: pip builds in copies of the python folder.
#   packaging_test.sh PYTHON BUILD_DIR WORK_DIR PROJECT_VERSION PYTHON_DIR
# Exits 77 (skipped) when no interpreter has pip, setuptools, wheel and venv.
set -euo pipefail
given=$1
build=$2
work=$3
version=$4
python_dir=$5
source=$(cd "$(dirname "$0")/../.." && pwd)
export PIP_DISABLE_PIP_VERSION_CHECK=1 PIP_NO_CACHE_DIR=1

# find_spec rather than import: importing pip before setuptools trips
# setuptools' distutils check on some systems.
has_tools='import importlib.util as u, sys
sys.exit(any(u.find_spec(m) is None for m in ("pip", "setuptools", "wheel", "venv")))'
python=""
for candidate in "$given" /usr/bin/python3; do
  if [ -x "$candidate" ] && "$candidate" -c "$has_tools" 2>/dev/null; then
    python=$candidate
    break
  fi
done
if [ -z "$python" ]; then
  echo "skipped: no python3 with pip, setuptools, wheel and venv"
  exit 77
fi

rm -rf "$work"
mkdir -p "$work/elsewhere"
printf 'iteration_limit 77\nmethod slp\n' >"$work/elsewhere/run.opt"

# A whole cycle by PYTHON with the environment's VAR=VALUE settings; the
# library loaded must be EXPECTED, a file or a folder it lies in.
#   cycle EXPECTED PYTHON [VAR=VALUE...]
cycle() {
  local expected=$1 interpreter=$2
  shift 2
  (cd "$work/elsewhere" && env -u OPTKW_LIB -u PYTHONPATH "$@" \
    "$interpreter" - "$source/examples/kestrel.def" "$expected" <<'PY'
import os
import sys
import optkw

definition, expected = sys.argv[1], sys.argv[2]
where = optkw.library_path()
wanted = where == expected or os.path.dirname(where) == expected
assert wanted, f"loaded {where}, not the library in {expected}"
with optkw.Options(definition) as opts:
    opts.read_file("run.opt")
    assert opts.errors == 0, [m.text for m in opts.messages]
    assert (opts["iteration_limit"], opts["method"]) == (77, "slp"), opts.items()
print(f"cycle done with {where}")
PY
  )
}

# A copy of the python folder for pip to build in.
#   package_copy FOLDER
package_copy() {
  cp -r "$source/python" "$1"
  rm -rf "$1/build" "$1/"*.egg-info
  find "$1" -name __pycache__ -prune -exec rm -rf {} +
}

echo "== pip install from a folder that can't reach the sources"
"$python" -m venv --system-site-packages --without-pip "$work/venv"
pip_install() {
  "$work/venv/bin/python" -m pip install --no-build-isolation --no-index --no-deps -q "$@"
}
package_copy "$work/lone"
if (unset OPTKW_SOURCE_DIR OPTKW_CMAKE_BUILD_DIR; pip_install "$work/lone") >"$work/lone.log" 2>&1; then
  echo "pip installed a package without the C++ sources"
  exit 1
fi
grep -q "install from the python folder of a checkout, or set OPTKW_SOURCE_DIR" "$work/lone.log" ||
  { cat "$work/lone.log"; exit 1; }

echo "== pip install into a venv"
package_copy "$work/package"
OPTKW_SOURCE_DIR=$source OPTKW_CMAKE_BUILD_DIR=$build pip_install "$work/package"
site=$("$work/venv/bin/python" -c "import sysconfig; print(sysconfig.get_paths()['platlib'])")
test -f "$site/optkw/py.typed"
test -f "$site/optkw/liboptkw.so.2"
test ! -e "$site/optkw/_installed.py"
installed_version=$("$work/venv/bin/python" -c \
  "import importlib.metadata as m; print(m.version('optkw'))")
[ "$installed_version" = "$version" ] || { echo "version $installed_version"; exit 1; }
cycle "$site/optkw" "$work/venv/bin/python"

echo "== cmake --install"
case $python_dir in /*)
  echo "skipped: the Python folder $python_dir lies outside any prefix"
  exit 77 ;;
esac
prefix=$work/prefix
cmake --install "$build" --prefix "$prefix" >/dev/null
libdir=$(dirname "$(find "$prefix" -name liboptkw.so.2 | head -n 1)")
package=$prefix/$python_dir/optkw
test -f "$package/py.typed"
cycle "$libdir" "$python" PYTHONPATH="$prefix/$python_dir"

echo "== OPTKW_LIB, then a bundled library, before the installed one"
built=$(cat "$build/optkw-library-path.txt")
cycle "$built" "$python" PYTHONPATH="$prefix/$python_dir" OPTKW_LIB="$built"
cp "$libdir/liboptkw.so.2" "$package/"
cycle "$package" "$python" PYTHONPATH="$prefix/$python_dir"
