#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# check-hardening.sh PROGRAM...: fails where a program lacks the hardening of a release build, and
# names what is missing.
set -uo pipefail
export LC_ALL=C

# What it is, readelf's option that shows it, and the pattern in its output.
checks=(
    'a position-independent executable (type)|--file-header|Type: +DYN'
    'a position-independent executable (flag)|--dynamic|FLAGS_1.* PIE'
    'relocations that are read-only (RELRO)|--segments|GNU_RELRO'
    'binding of all symbols at the start (BIND_NOW)|--dynamic|FLAGS.* BIND_NOW'
    'the stack protector|--dyn-syms|UND __stack_chk_fail'
    'checked library functions (_FORTIFY_SOURCE)|--dyn-syms|UND __[a-z]+_chk@'
)
failed=0
for program in "$@"; do
    for check in "${checks[@]}"; do
        IFS='|' read -r name option pattern <<<"$check"
        # All of the output is read: readelf must not fail because grep has seen enough.
        if ! readelf --wide "$option" "$program" | grep -E "$pattern" >/dev/null; then
            printf '%s lacks %s\n' "$program" "$name" >&2
            failed=1
        fi
    done
done
exit "$failed"
