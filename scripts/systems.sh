# Sourced by what tries the project on bare Debian systems in folders. Needs root.
#   system_release debian-12        its release, or nothing
#   make_system FOLDER RELEASE      makes the system with debootstrap where it is not there yet
#   enter_system FOLDER             mounts what programs in it need, until the script ends
#   in_system FOLDER COMMAND…       runs a command as its root
#   as_newcomer FOLDER COMMAND…     runs a line of the shell as its ordinary user, in the home folder

system_release() {
    case ${1:-} in
        debian-12) printf bookworm ;;
        debian-13) printf trixie ;;
    esac
}

# The machine's own package source, for another release.
mirror() {
    local found
    found=$(sed -n 's/^URIs: *//p; s/^deb [^h]*\(http[^ ]*\).*/\1/p' \
        /etc/apt/sources.list /etc/apt/sources.list.d/* 2>/dev/null | head -n 1)
    printf '%s' "${found:-http://deb.debian.org/debian}"
}

make_system() {
    local root=$1 release=$2
    [ ! -x "$root/bin/sh" ] || return 0
    say "Making $release in $root."
    mkdir -p "$root"
    debootstrap --variant=minbase "$release" "$root" "$(mirror)" >"$root.log" 2>&1 ||
        { tail -n 20 "$root.log" >&2; exit 1; }
}

entered_systems=()
leave_systems() {
    local root
    for root in "${entered_systems[@]}"; do
        umount "$root/proc" 2>/dev/null || true
    done
}

enter_system() {
    local root=$1
    mkdir -p "$root/proc"
    if ! mountpoint -q "$root/proc"; then
        mount -t proc proc "$root/proc"
        entered_systems+=("$root")
        trap leave_systems EXIT
    fi
    cp /etc/resolv.conf "$root/etc/resolv.conf" 2>/dev/null || true
    in_system "$root" id newcomer >/dev/null 2>&1 ||
        in_system "$root" useradd --create-home --shell /bin/bash newcomer
}

in_system() {
    local root=$1
    shift
    env -i PATH=/usr/local/sbin:/usr/local/bin:/usr/sbin:/usr/bin:/sbin:/bin \
        DEBIAN_FRONTEND=noninteractive chroot "$root" "$@"
}

as_newcomer() {
    local root=$1
    shift
    in_system "$root" setpriv --reuid=newcomer --regid=newcomer --init-groups \
        env -i HOME=/home/newcomer USER=newcomer PATH=/usr/local/bin:/usr/bin:/bin TERM=dumb \
        bash -euo pipefail -c "cd; $*" </dev/null
}

# Installs packages in a system; prints what apt said only if it fails.
install_in_system() {
    local root=$1
    shift
    in_system "$root" sh -c 'apt-get update -qq && apt-get install -y -qq --no-install-recommends "$@"' \
        sh "$@" >"$root.log" 2>&1 || { tail -n 20 "$root.log" >&2; exit 1; }
}

# Clones what is committed here into the home of the ordinary user.
clone_into_home() {
    local root=$1 clone=$1/home/newcomer/KTUtility
    [ -d "$clone" ] || git clone -q --no-hardlinks . "$clone"
    git -c safe.directory="$clone" -C "$clone" fetch -q "$PWD" HEAD
    git -c safe.directory="$clone" -C "$clone" reset -q --hard FETCH_HEAD
    in_system "$root" chown -R newcomer: /home/newcomer
}
