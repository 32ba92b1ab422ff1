# Shared by the commands in the top folder; sourced, with the top folder as working directory.

say() { printf '%s\n' "$*"; }
die() { printf '%s\n' "$*" >&2; exit 1; }

# need USE...: installs the packages of these uses that are missing, from the distribution.
need() {
    local use package missing=()
    for use in "$@"; do
        while read -r package; do
            dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q 'ok installed' ||
                missing+=("$package")
        done < <(awk -v use="$use" '$1 == use { print $2 }' packaging/packages.txt)
    done
    [ ${#missing[@]} -gt 0 ] || return 0
    say "Installing: ${missing[*]}"
    local root=()
    if [ "$(id -u)" -ne 0 ]; then
        command -v sudo >/dev/null || die "Run as root, or install sudo: packages are missing."
        root=(sudo)
    fi
    "${root[@]}" apt-get update -q
    "${root[@]}" env DEBIAN_FRONTEND=noninteractive \
        apt-get install -y -q --no-install-recommends "${missing[@]}"
}

# build PRESET [TARGET...]: configures once, then builds what has changed.
build() {
    local preset=$1
    shift
    [ -f "build/$preset/build.ninja" ] || cmake --preset "$preset"
    cmake --build --preset "$preset" ${1:+--target "$@"}
}
