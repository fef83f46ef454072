#!/usr/bin/env bash
# Prints the share of the tests in the lines of C++, Python and shell that aren't blank, and fails where it is more than a
# third.
set -euo pipefail
cd "$(dirname "$0")/.."

count() { # PATH...: the lines below them
    git ls-files -- "$@" | grep -E '\.(cpp|h|py|sh)$' | tr '\n' '\0' | xargs -0 cat | grep -c '[^[:space:]]'
}
tests=$(count tests)
all=$(count .)
share=$((1000 * tests / all))
echo "tests: $tests of $all lines, $((share / 10)).$((share % 10)) %"
[ $((100 * tests)) -le $((33 * all)) ] || { echo "the tests are more than 33 %: cut those that catch nothing" >&2; exit 1; }
