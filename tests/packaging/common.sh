# Shared by the tests of this folder; sourced.
export LC_ALL=C.UTF-8
# dpkg wants the tools of administrators, which not everybody has at hand.
export PATH=$PATH:/usr/sbin:/sbin

fail() {
    echo "FAIL: $*" >&2
    exit 1
}

# Ends the test as skipped: this machine cannot run it.
skip() {
    echo "SKIP: $*"
    exit 77
}

# need COMMAND...: skips the test where one of them is missing.
need() {
    local command
    for command; do
        command -v "$command" >/dev/null || skip "$command is not installed"
    done
}

# same WHAT EXPECTED ACTUAL: both texts, compared line by line.
same() {
    diff -u --label expected --label actual <(echo "$2") <(echo "$3") || fail "$1 differ"
}
