# Sourced by ./run and ./test, from the top of the tree: installs what is missing and offers
# `build PRESET [target…]`, which configures once and builds what has changed.
case "$(uname -s)" in
    Darwin) sh packaging/install-macos.sh || exit 1 ;;
    *)
        if ! command -v apt-get >/dev/null 2>&1; then
            echo "This system has no apt-get: install what packaging/debian-packages.txt lists" >&2
            exit 1
        fi
        sh packaging/install-debian.sh || exit 1
        ;;
esac

build() {
    preset="$1"
    shift
    if [ ! -f "build/$preset/build.ninja" ]; then
        log="build/$preset-configure.log"
        mkdir -p build
        if ! cmake --preset "$preset" >"$log" 2>&1; then
            cat "$log" >&2
            exit 1
        fi
    fi
    if [ $# -gt 0 ]; then
        cmake --build "build/$preset" --target "$@" || exit 1
    else
        cmake --build "build/$preset" || exit 1
    fi
}
