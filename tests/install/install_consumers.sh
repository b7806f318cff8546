#!/usr/bin/env bash
# Installs the build into a temporary prefix and builds a consumer against it
# twice: through find_package(optkw) and through pkg-config. Then runs both.
#   install_consumers.sh BUILD_DIR WORK_DIR C_COMPILER
set -euo pipefail
build=$1
work=$2
cc=$3
here=$(cd "$(dirname "$0")" && pwd)
prefix=$work/prefix
rm -rf "$work"
mkdir -p "$work"

cmake --install "$build" --prefix "$prefix" >/dev/null
libdir=$(dirname "$(find "$prefix" -name 'liboptkw.so.2' | head -n 1)")
echo "library: $(readlink "$libdir/liboptkw.so") <- liboptkw.so, SONAME $(objdump -p "$libdir/liboptkw.so" | awk '/SONAME/ {print $2}')"
[ "$(objdump -p "$libdir/liboptkw.so" | awk '/SONAME/ {print $2}')" = liboptkw.so.2 ]
"$prefix/bin/optkw" --help >/dev/null

echo "== find_package consumer"
cmake -S "$here/consumer" -B "$work/cmake-consumer" -DCMAKE_PREFIX_PATH="$prefix" \
  -DCMAKE_C_COMPILER="$cc" -DCMAKE_BUILD_RPATH="$libdir" >/dev/null
cmake --build "$work/cmake-consumer" >/dev/null
"$work/cmake-consumer/consumer"

echo "== pkg-config consumer"
export PKG_CONFIG_PATH=$libdir/pkgconfig
# shellcheck disable=SC2046
"$cc" "$here/consumer/consumer.c" -o "$work/pkgconfig-consumer" $(pkg-config --cflags --libs optkw) \
  -Wl,-rpath,"$libdir"
"$work/pkgconfig-consumer"
