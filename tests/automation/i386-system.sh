# shellcheck shell=bash
# For scripts that run 32-bit Wine, which cannot be installed beside the 64-bit one: a small 32-bit system in a folder.
# It is made once. Folders have the same path inside it as outside. Needs root and the package debootstrap.

i386_system=
mounted=()

# make_i386_system FOLDER : afterwards, `show_in_system` and `in_system` can be used until the script ends.
make_i386_system() {
    [[ $(id -u) -eq 0 ]] || { echo "A 32-bit system needs root" >&2; return 1; }
    mkdir -p "$1"
    i386_system=$(cd "$1" && pwd)
    trap 'printf "%s\0" "${mounted[@]}" | xargs -0r umount --lazy' EXIT
    if [[ ! -e $i386_system/made ]]; then
        rm -rf "$i386_system"
        debootstrap --arch=i386 --variant=minbase "$(. /etc/os-release && echo "$VERSION_CODENAME")" "$i386_system"
        cp /etc/resolv.conf "$i386_system/etc/"
    fi
    local folder
    for folder in /proc /sys /dev; do
        show_in_system "$folder"
    done
    if [[ ! -e $i386_system/made ]]; then
        in_system DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends \
            wine wine32 binutils-mingw-w64-x86-64
        touch "$i386_system/made"
    fi
}

show_in_system() { # FOLDER
    mkdir -p "$i386_system$1"
    mount --bind "$1" "$i386_system$1"
    mounted=("$i386_system$1" "${mounted[@]}")
}

in_system() { chroot "$i386_system" /usr/bin/env -i PATH=/usr/sbin:/usr/bin:/sbin:/bin HOME=/root "$@"; }
