#!/usr/bin/env bash
# Which lines of src/ the tests and scenarios run; fails under 97 in a hundred.
# The pages for reading: build/coverage/report/index.html.
set -euo pipefail

cd "$(dirname "${BASH_SOURCE[0]}")/.."
source cmake/set_up.sh

(($# == 0)) || fail "takes no arguments; what it does stands at its top" 2

BUILD=build/coverage
LEAST_PERCENT=97

setUpPackages "${NATIVE_PACKAGES[@]}" gcovr
mkdir -p "$BUILD/report"
log="$BUILD/coverage.log"
runQuietly() {
    "$@" >"$log" 2>&1 </dev/null || { cat "$log" >&2 && fail "failed: $*"; }
}

runQuietly cmake --preset coverage
runQuietly cmake --build --preset coverage
find "$BUILD" -name '*.gcda' -delete
runQuietly ctest --preset coverage -j "$(nproc)" --no-tests=error
gcovr --root . --object-directory "$BUILD" --filter src/ --exclude-throw-branches --print-summary \
    --txt "$BUILD/report/lines.txt" --html-details "$BUILD/report/index.html" \
    --fail-under-line "$LEAST_PERCENT" -j "$(nproc)" "$BUILD" >"$BUILD/summary.txt" || status=$?
cat "$BUILD/summary.txt"
((${status:-0} == 0)) || fail "under $LEAST_PERCENT % of the lines; $BUILD/report/lines.txt says which are missing"
