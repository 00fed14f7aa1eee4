# shellcheck shell=bash
# Defines need_packages, for scripts that source this file.

# need_packages NAME... : installs those that are missing. If it may not install, it prints what to install and fails.
need_packages() {
    local package missing=()
    for package in "$@"; do
        [[ $(dpkg-query -W -f='${db:Status-Status}' "$package" 2>/dev/null) == installed ]] || missing+=("$package")
    done
    [[ ${#missing[@]} -eq 0 ]] && return
    local as_root=()
    if [[ $(id -u) -ne 0 ]]; then
        if ! command -v sudo >/dev/null; then
            echo "Please install these Debian packages as root, then start again:" >&2
            echo "    apt-get install ${missing[*]}" >&2
            return 1
        fi
        as_root=(sudo)
    fi
    echo "Installing ${missing[*]}"
    if ! { "${as_root[@]}" apt-get update -qq &&
        "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
            apt-get install -y -qq --no-install-recommends "${missing[@]}"; }; then
        echo "That failed. Please install these Debian packages as root, then start again:" >&2
        echo "    apt-get install ${missing[*]}" >&2
        return 1
    fi
}
