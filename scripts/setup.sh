# Set-up shared by run, test and .ci/run; sourced with the repository's root as working directory.

# Says why on standard error and ends the script.
die() {
    echo "$*" >&2
    exit 1
}

# as_root COMMAND...: runs it directly for root, through sudo for everybody else.
as_root() {
    if [ "$(id -u)" -eq 0 ]; then
        "$@"
    else
        command -v sudo >/dev/null || die "Please install sudo, or run as root: $*"
        sudo "$@"
    fi
}

# install_packages FILE...: installs what is missing of the Debian packages that the files list, one
# a line, comments after a #. Touches nothing when all is there.
install_packages() {
    local wanted installed missing
    wanted=$(sed 's/#.*//' "$@" | xargs -n1 | sort -u)
    command -v dpkg-query >/dev/null ||
        { echo "Not a Debian system: please provide" $wanted >&2; return; }
    # dpkg-query fails when it does not know one of the packages; the others are listed all the same.
    installed=$(dpkg-query -W -f '${db:Status-Status} ${Package}\n' $wanted 2>/dev/null |
        sed -n 's/^installed //p' | sort -u) || true
    missing=$(comm -23 <(echo "$wanted") <(echo "$installed"))
    [ -n "$missing" ] || return 0
    echo "Installing Debian packages:" $missing
    local apt=(env DEBIAN_FRONTEND=noninteractive apt-get -o DPkg::Lock::Timeout=120)
    as_root "${apt[@]}" update
    as_root "${apt[@]}" install -y --no-install-recommends $missing
}

# build PRESET [TARGET...]: configures and builds; the output is shown only when that fails.
build() {
    local preset=$1 log=build/$1/build.log targets=()
    shift
    [ $# -eq 0 ] || targets=(--target "$@")
    mkdir -p "build/$preset"
    echo "Building ($preset)"
    { cmake --preset "$preset" && cmake --build --preset "$preset" "${targets[@]}"; } \
        >"$log" 2>&1 || { cat "$log" >&2; die "The build failed; its output is in $log"; }
}
