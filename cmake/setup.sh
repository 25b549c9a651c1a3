# What run, check and tests/run_window_tests share: packages, builds, a display, a Wine prefix. Sourced, never run.

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
build=$root/build
cleanups=()
trap "exit 130" INT
trap "exit 143" TERM

# Everything that a new Debian or Ubuntu machine lacks.
packages=(
  git cmake ninja-build pkg-config clang-format
  g++ g++-mingw-w64-x86-64-posix g++-mingw-w64-i686-posix
  googletest libbenchmark-dev libsqlite3-dev
  libsword-dev sword-text-kjv
  libsword-utils sword-comm-mhcc sword-comm-scofield sword-comm-tdavid
  nlohmann-json3-dev nodejs
  librsvg2-dev imagemagick
  halibut libchm-bin hunspell hunspell-en-gb
  wine wine64 fonts-wine fonts-liberation
  xvfb x11-utils libfaketime
  ghostscript poppler-utils
)

say() { printf '%s\n' "$*" >&2; }
fail() { say "$(basename "$0"): $*"; exit 1; }

# under_lock <file> <command...>: alone among all that name the file.
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

# build_preset <preset> [target...]: the configure step runs once; later the build itself repeats it where needed.
build_preset() {
  local preset=$1 target targets=()
  shift
  for target in "$@"; do targets+=(--target "$target"); done
  cd "$root"
  [[ -f $build/$preset/build.ninja ]] || cmake --preset "$preset"
  cmake --build "$build/$preset" "${targets[@]}"
}

# ---- Notes ------------------------------------------------------------------------------------------------------

# lay_out_note_set <name> <from> <to>: copies a set into a folder that has none of this name. What is there is the
# user's: a set, or what may be left of one. The index comes last, for by it the program finds a set; a copying that was
# ended before leaves files that are the same as these, and is brought to its end.
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

# lay_out_note_sets <from> <to>: the sets that come with the program. Where there were neither notes nor settings before,
# the program opens on the user's own set, the second by name, so that a first note does not go among the readings.
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

# Starts a display of its own under the first free number.
start_display() {
  local numbers
  numbers=$(mktemp)
  Xvfb -displayfd 3 -screen 0 1280x1024x24 -nolisten tcp 3>"$numbers" </dev/null >/dev/null 2>&1 &
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

# ---- Wine -------------------------------------------------------------------------------------------------------

# File names beyond ASCII need a UTF-8 locale; Mono and the browser are nothing that the program needs.
wine_environment() {
  export WINEPREFIX=$1 WINEARCH=win64 WINEDEBUG=-all WINEDLLOVERRIDES='mscoree=;mshtml='
  [[ ${LC_ALL:-${LC_CTYPE:-${LANG:-}}} == *[Uu][Tt][Ff]* ]] || export LANG=C.UTF-8 LC_ALL=C.UTF-8
}

# What starts first keeps its output open for the services that outlive it: never a pipe.
quiet() { "$@" </dev/null >/dev/null 2>&1 9>&-; }

# prepare_prefix <folder> <registry file>...: a Wine prefix with the fonts that the program asks for. Made once, and
# again when a registry file is newer. Needs a display.
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
  # Wine does not look where the package puts these.
  cp /usr/share/wine/fonts/*.ttf /usr/share/wine/fonts/*.fon "$folder/drive_c/windows/Fonts/"
  for file in "$@"; do quiet wine regedit /S "$(windows_path "$file")"; done
  quiet wineserver -w || true
  touch "$stamp"
}

windows_path() { printf 'Z:%s' "${1//\//\\}"; }

# A prefix of this run alone, for a display without a window manager. One is prepared and never used; each run works in
# a copy that goes at the end, so that no run meets another's leftovers.
make_scratch_prefix() {
  local scratch
  under_lock "$build/wine-tests.lock" prepare_prefix "$build/wine-tests" "$root/cmake/wine.reg" "$root/tests/wine.reg"
  scratch=$(mktemp -d "$build/wine-scratch.XXXXXX")
  at_exit "rm -rf '$scratch'"
  cp -al "$build/wine-tests/." "$scratch"  # 700 MB of Wine's own files, which nobody writes
  cp --remove-destination "$build"/wine-tests/*.reg "$scratch"
  wine_environment "$scratch"
  at_exit 'quiet wineserver -k'
}
