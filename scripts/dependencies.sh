# Sourced by run and test: makes sure that what the build needs is installed.

debian_packages=(
    g++ cmake ninja-build ccache pkg-config python3 git
    qt6-base-dev qt6-image-formats-plugins qt6-l10n-tools qt6-tools-dev
    libqt6opengl6-dev libqt6sql6-sqlite
    libicu-dev libssl-dev libcurl4-openssl-dev
    libgtest-dev librapidcheck-dev
    xvfb openbox
)

say() { printf '%s\n' "$*" >&2; }

# The names of the installed packages, and the names that they stand in for: what is a package of its own
# in one release may be part of another in the next.
present_packages() {
    dpkg-query -W -f='${db:Status-Status}:${Package}, ${Provides}\n' | sed -n 's/^installed://p' |
        tr ',' '\n' | sed 's/^ *//; s/ .*//'
}

# The packages of the list that are not installed in any form.
missing_packages() {
    printf '%s\n' "${debian_packages[@]}" | grep -vxF -f <(present_packages) || true
}

install_packages() {
    local become=()
    if [ "$(id -u)" -ne 0 ]; then
        command -v sudo >/dev/null || { say "Please install as root: apt-get install $*"; return 1; }
        become=(sudo)
    fi
    say "Installing: $*"
    "${become[@]}" apt-get update -qq >&2 &&
        "${become[@]}" env DEBIAN_FRONTEND=noninteractive \
            apt-get install -y -qq --no-install-recommends "$@" >&2
}

# On Debian and its kin, installs what is missing; elsewhere says what is needed and goes on if the
# build tools are there.
need_dependencies() {
    if command -v apt-get >/dev/null && command -v dpkg-query >/dev/null; then
        local missing
        mapfile -t missing < <(missing_packages)
        [ "${#missing[@]}" -eq 0 ] || install_packages "${missing[@]}" || exit 1
        return
    fi
    say "This is no Debian system. Needed, by their Debian names: ${debian_packages[*]}"
    local tool
    for tool in cmake ninja c++; do
        command -v "$tool" >/dev/null || { say "$tool is not installed."; exit 1; }
    done
}

# Configures a preset, again when presets have changed, and builds it; prints the build's output only if
# it fails.
build_preset() {
    local preset=$1 log
    shift
    mkdir -p "build/$preset"
    log="build/$preset/build.log"
    if [ ! "build/$preset/build.ninja" -nt CMakePresets.json ]; then
        say "Configuring the $preset preset."
        cmake --preset "$preset" >"$log" 2>&1 || { cat "$log" >&2; exit 1; }
    fi
    # "-n" says cheaply whether there is anything to tell people about.
    if ! cmake --build --preset "$preset" "$@" -- -n 2>/dev/null | grep -q 'no work to do'; then
        say "Building the $preset preset (log: $log)."
    fi
    cmake --build --preset "$preset" "$@" >"$log" 2>&1 || { cat "$log" >&2; exit 1; }
}
