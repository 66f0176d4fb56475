# What the scripts share. Sourced, never run.

top=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
cd "$top"

# install_packages [PACKAGE...]: installs those of packages.txt and the named ones that are missing; costs a fraction of
# a second when none is.
install_packages() {
    local wanted missing=()
    mapfile -t wanted < <(grep -v '^#' "$top/scripts/packages.txt"; [ $# -eq 0 ] || printf '%s\n' "$@")
    local installed
    # It fails where a package is not known at all, which is no failure here.
    installed=$({ dpkg-query -W -f '${db:Status-Abbrev}${Package}\n' "${wanted[@]}" 2>/dev/null || true; } |
        sed -n 's/^ii *//p' | sort)
    mapfile -t missing < <(comm -23 <(printf '%s\n' "${wanted[@]}" | sort) <(printf '%s\n' "$installed"))
    [ ${#missing[@]} -eq 0 ] && return
    local as_root=()
    if [ "$(id -u)" -ne 0 ]; then
        if ! command -v sudo >/dev/null; then
            printf 'These packages are missing, and installing them takes root rights:\n  apt-get install %s\n' "${missing[*]}" >&2
            exit 1
        fi
        as_root=(sudo)
    fi
    echo "Installing ${#missing[@]} missing packages: ${missing[*]}"
    "${as_root[@]}" apt-get update -qq
    DEBIAN_FRONTEND=noninteractive "${as_root[@]}" apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
}

# build PRESET [TARGET...]: configures what is not configured yet and builds what has changed.
build() {
    local preset=$1
    shift
    [ -f "build/$preset/build.ninja" ] || cmake --preset "$preset"
    cmake --build "build/$preset" ${1:+--target "$@"}
}
