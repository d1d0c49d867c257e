# Sourced by ./run, ./test, bench/run, tests/soak/run and packaging/build-deb from the project's root: installs what is
# missing and builds.
# Nothing here reads standard input, and every failure is one line on standard error.

fail() {
    echo "$1" >&2
    exit 1
}

# missing_packages GROUP...: those of the groups in packages.txt that are not installed.
missing_packages() {
    local group package
    while read -r group package; do
        [[ " $* " == *" $group "* ]] || continue
        [[ "$(dpkg-query -W -f='${db:Status-Status}' "$package" 2>/dev/null)" == installed ]] || echo "$package"
    done < <(grep -v '^#' packaging/packages.txt)
}

as_root() {
    if [[ $EUID == 0 ]]; then
        "$@"
    elif command -v sudo >/dev/null; then
        if [[ -t 1 && -z ${CI:-} ]]; then sudo "$@"; else sudo -n "$@"; fi
    else
        return 1
    fi
}

apt_install() {
    as_root env DEBIAN_FRONTEND=noninteractive apt-get -y -o DPkg::Lock::Timeout=300 --no-install-recommends \
        install "$@" >>"$log" 2>&1
}

# install_packages GROUP...: installs only what is missing; does nothing, and needs no network, when all is there.
install_packages() {
    if ! command -v dpkg-query >/dev/null; then
        echo "This is no Debian system, so nothing is installed; packaging/packages.txt lists what is needed."
        return
    fi
    local packages log=build/packages.log
    mapfile -t packages < <(missing_packages "$@")
    [[ ${#packages[@]} == 0 ]] && return
    mkdir -p build
    : >"$log"
    echo "Installing ${packages[*]} ..."
    # The list of packages may be old or absent, so it is fetched only when the first try fails.
    apt_install "${packages[@]}" </dev/null && return
    as_root apt-get update </dev/null >>"$log" 2>&1
    apt_install "${packages[@]}" </dev/null && return
    fail "These packages are missing and could not be installed (see $log): ${packages[*]}. As root: apt-get install ${packages[*]}"
}

# configure PRESET [OPTION...]: into build/PRESET, anew when the project was moved there from elsewhere.
configure() {
    local preset=$1 cache=build/$1/CMakeCache.txt
    shift
    if [[ -f $cache ]] && ! grep -qxF "CMAKE_HOME_DIRECTORY:INTERNAL=$PWD" "$cache"; then
        rm -rf "$cache" "build/$preset/CMakeFiles"
    fi
    mkdir -p "build/$preset"
    cmake --preset "$preset" "$@" </dev/null >"build/$preset/configure.log" 2>&1 || {
        grep -A6 'CMake Error' "build/$preset/configure.log" >&2
        return 1
    }
}

# build PRESET [TARGET...]: shows the compiler's words only when it fails.
build() {
    local preset=$1 log=build/$1/build.log
    shift
    local progress=(cat)
    if [[ -t 1 && -z ${CI:-} ]]; then progress=(tee /dev/stderr); fi
    if ! ninja -C "build/$preset" -j "$(nproc)" "$@" </dev/null 2>&1 | "${progress[@]}" >"$log"; then
        grep -E -A12 'error|FAILED' "$log" | head -60 >&2
        return 1
    fi
}
