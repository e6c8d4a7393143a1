#!/usr/bin/env bash
# Builds the consumer program against an installed tree, once with
# find_package(Telvaro) and once with pkg-config, runs both and checks their
# answers and the installed command line.
# Usage: check_consumer.sh WORK   (the tree installed in WORK/prefix)
set -euo pipefail
work="$1"
prefix="$work/prefix"
here="$(cd "$(dirname "$0")" && pwd)"
expected=$'3\nbc'
export TELVARO_HOME="$work/home"
mkdir -p "$TELVARO_HOME"

fail() { echo "install check: $*" >&2; exit 1; }

for f in bin/telvaro include/telvaro/frame/invoke.h include/telvaro/runtime/variant.h \
         lib/cmake/Telvaro/TelvaroConfig.cmake lib/pkgconfig/telvaro.pc; do
  [ -e "$prefix/$f" ] || fail "$f is not installed"
done
[ "$("$prefix/bin/telvaro" call strCuentaCaracteres aaaa aa)" = 3 ] || fail "the installed telvaro does not answer"

cmake -S "$here/consumer" -B "$work/cmake-build" -DCMAKE_PREFIX_PATH="$prefix" -DCMAKE_BUILD_TYPE=Release >/dev/null
cmake --build "$work/cmake-build" >/dev/null
[ "$("$work/cmake-build/consumer")" = "$expected" ] || fail "the find_package consumer answered wrong"

flags="$(PKG_CONFIG_PATH="$prefix/lib/pkgconfig" pkg-config --cflags --libs telvaro)"
# shellcheck disable=SC2086
c++ -o "$work/pkg-consumer" "$here/consumer/main.cpp" $flags -lpthread
[ "$("$work/pkg-consumer")" = "$expected" ] || fail "the pkg-config consumer answered wrong"
echo "install check: find_package and pkg-config consumers built and answered"
