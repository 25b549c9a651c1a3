# Shared by run, check and tests/run_window_tests: packages, builds, a display, a Wine prefix. To be sourced, not run.

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
build=$root/build
cleanups=()
trap "exit 130" INT
trap "exit 143" TERM

# Everything that has to be installed on a new Debian or Ubuntu machine.
packages=(
  git cmake ninja-build pkg-config clang-format clang libclang-rt-dev
  g++ g++-mingw-w64-x86-64-posix g++-mingw-w64-i686-posix
  googletest libbenchmark-dev libsqlite3-dev
  libsword-dev sword-text-kjv
  libsword-utils sword-comm-mhcc sword-comm-scofield sword-comm-tdavid
  libcli11-dev nlohmann-json3-dev nodejs
  librsvg2-dev imagemagick
  halibut hunspell hunspell-en-gb
  wine wine64 fonts-wine fonts-liberation fonts-dejavu-core
  xvfb x11-utils xdotool libfaketime locales
  ghostscript poppler-utils
  mandoc zsh fish ripgrep
  syncthing curl
  nsis zip unzip
  lintian dpkg-dev less
)

say() { printf '%s\n' "$*" >&2; }
fail() { say "$(basename "$0"): $*"; exit 1; }

# under_lock <file> <command...>: runs the command while holding a lock on the file.
under_lock() {
  local file=$1
  shift
  (flock 9 && "$@") 9>"$file"
}

# ---- Packages ---------------------------------------------------------------------------------------------------

is_installed() { [[ $(dpkg-query -W -f '${db:Status-Status}' "$1" 2>/dev/null) == installed ]]; }

missing_packages() {
  local package
  for package in "${packages[@]}"; do
    is_installed "$package" || echo "$package"
  done
  command -v npm >/dev/null || echo npm
}

install_packages() {
  command -v dpkg-query >/dev/null || fail "needs Debian or Ubuntu to install what it uses: ${packages[*]}"
  local missing as_root=()
  mapfile -t missing < <(missing_packages)
  ((${#missing[@]})) || return 0
  [[ $(id -u) == 0 ]] || as_root=(sudo)
  say "installing ${missing[*]}"
  "${as_root[@]}" apt-get update -q </dev/null >&2
  "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
    apt-get install -q -y --no-install-recommends "${missing[@]}" </dev/null >&2
}

# ---- Builds -----------------------------------------------------------------------------------------------------

# build_preset <preset> [target...]: configures once; later the build repeats the configure step when needed. Starts again
# when the presets have changed, because a build keeps the compiler that it was started with.
build_preset() {
  local preset=$1 target targets=()
  shift
  for target in "$@"; do targets+=(--target "$target"); done
  cd "$root"
  [[ $build/$preset/build.ninja -nt CMakePresets.json ]] || cmake --fresh --preset "$preset"
  cmake --build "$build/$preset" "${targets[@]}"
}

# ---- Notes ------------------------------------------------------------------------------------------------------

# lay_out_note_set <name> <from> <to>: copies a set to a folder that does not have one of this name. Existing files that
# differ belong to the user and are left alone, even if the set is incomplete. Existing files that are the same were
# left by an interrupted copy, which is completed. The index is copied last, because the program finds a set by its
# index.
lay_out_note_set() {
  local name=$1 from=$2 to=$3 ending place
  if [[ -e $to/$name.nmi || -e $to/$name.nmd.temp ]]; then return 0; fi
  for ending in nmd dti nmi; do
    place=$to/$name.$ending
    [[ ! -e $place ]] || cmp -s "$from/$name.$ending" "$place" || return 0
  done
  for ending in nmd dti nmi; do
    place=$to/$name.$ending
    [[ -e $from/$name.$ending && ! -e $place ]] || continue
    cp "$from/$name.$ending" "$place.new"
    mv -n "$place.new" "$place"
  done
}

# lay_out_note_sets <from> <to>: copies the sets that come with the program. In a new folder, without notes or settings,
# the settings select "My Notes", the second set by name, so that the user's first note is not added to the readings.
lay_out_note_sets() {
  local from=$1 to=$2 is_first=yes
  [[ ! -e $to/Versewell.INI ]] && ! compgen -G "$to/*.nm[di]*" >/dev/null || is_first=no
  lay_out_note_set 'Morning and Evening' "$from" "$to"
  lay_out_note_set 'My Notes' "$from" "$to"
  [[ $is_first == no ]] || printf '[MISC]\r\nNote=1\r\n' >"$to/Versewell.INI"
}

# ---- Display ----------------------------------------------------------------------------------------------------

has_display() { [[ -n ${DISPLAY:-} ]] && xdpyinfo >/dev/null 2>&1; }

at_exit() { cleanups=("$*" "${cleanups[@]}"); }
clean_up() {
  local step
  for step in "${cleanups[@]}"; do eval "$step" || true; done
}

# start_display [<width>x<height>]: starts a display of this size on the first free number.
start_display() {
  local size=${1:-1280x1024} numbers
  numbers=$(mktemp)
  Xvfb -displayfd 3 -screen 0 "${size}x24" -nolisten tcp 3>"$numbers" </dev/null >/dev/null 2>&1 &
  at_exit "kill $!"
  local waited
  for ((waited = 0; waited < 100; waited++)); do
    [[ -s $numbers ]] && break
    sleep 0.1
  done
  [[ -s $numbers ]] || fail 'the display server Xvfb does not start'
  DISPLAY=:$(<"$numbers")
  export DISPLAY
  rm -f "$numbers"
}

# ---- Processors -------------------------------------------------------------------------------------------------

# Numbers of the processors that this process may use.
allowed_processors() {
  local range
  for range in $(sed -nE 's/^Cpus_allowed_list:\s*//p' /proc/self/status | tr ',' ' '); do
    seq "${range%-*}" "${range#*-}"
  done
}

# stay_on_processor [n]: keeps this process, and all that it starts from now on, on the nth of these processors (after
# the last one, the first follows again; default: any). Wine's programs wait for answers of its server all the time; if
# these come from another processor, the window tests take two thirds more processor time.
stay_on_processor() {
  local all
  mapfile -t all < <(allowed_processors)
  taskset -cp "${all[${1:-$RANDOM} % ${#all[@]}]}" "$BASHPID" >/dev/null
}

# ---- Wine -------------------------------------------------------------------------------------------------------

# File names with non-ASCII characters need a UTF-8 locale. The program does not need Mono and the browser.
wine_environment() {
  export WINEPREFIX=$1 WINEARCH=win64 WINEDEBUG=-all WINEDLLOVERRIDES='mscoree=;mshtml='
  [[ ${LC_ALL:-${LC_CTYPE:-${LANG:-}}} == *[Uu][Tt][Ff]* ]] || export LANG=C.UTF-8 LC_ALL=C.UTF-8
}

# Wine's services inherit the output of the first program and outlive it, so its output must not be a pipe.
quiet() { "$@" </dev/null >/dev/null 2>&1 9>&-; }

# prepare_prefix <folder> <registry file>...: makes a Wine prefix with the fonts that the program uses, unless it exists
# and is newer than the registry files. Needs a display.
prepare_prefix() {
  local folder=$1 file
  shift
  wine_environment "$folder"
  local stamp=$folder/prepared
  for file in "$@"; do
    [[ -f $stamp && ! $file -nt $stamp ]] || rm -f "$stamp"
  done
  [[ -f $stamp ]] && return
  say "preparing Wine in ${folder#"$root"/}"
  mkdir -p "$folder"
  quiet wineboot -i || true
  quiet wineserver -w || true
  # Wine does not look in the folder where the package installs these.
  cp /usr/share/wine/fonts/*.ttf /usr/share/wine/fonts/*.fon "$folder/drive_c/windows/Fonts/"
  for file in "$@"; do quiet wine regedit /S "$(windows_path "$file")"; done
  quiet wineserver -w || true
  touch "$stamp"
}

windows_path() { printf 'Z:%s' "${1//\//\\}"; }

# Makes a prefix for this run, for a display without a window manager. It is a copy of a prepared prefix and is deleted
# at the end, so that runs do not affect each other.
make_scratch_prefix() {
  local scratch
  under_lock "$build/wine-tests.lock" prepare_prefix "$build/wine-tests" "$root/cmake/wine.reg" "$root/tests/wine.reg"
  scratch=$(mktemp -d "$build/wine-scratch.XXXXXX")
  at_exit "rm -rf '$scratch'"
  cp -al "$build/wine-tests/." "$scratch"  # hard links: 700 MB of Wine's files that are never written to
  cp --remove-destination "$build"/wine-tests/*.reg "$scratch"
  wine_environment "$scratch"
  at_exit 'quiet wineserver -k'
}
