# Sourced by the scripts, in the top folder.

# build PRESET [CMAKE-OPTIONS...]: configures and builds a preset, through ccache where there is one.
build() {
    local preset=$1 launcher=
    shift
    if command -v ccache >/dev/null; then
        launcher=ccache
    fi
    cmake --preset "$preset" -DCMAKE_CXX_COMPILER_LAUNCHER="$launcher" "$@" >/dev/null
    cmake --build --preset "$preset" --parallel "$(nproc)"
}
