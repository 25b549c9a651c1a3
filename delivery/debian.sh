# Makes the Debian package of vw. To be sourced. Uses $root, $build, $version, $maintainer, $stage and
# SOURCE_DATE_EPOCH.

# Debian's packaging tools read their input from a folder `debian` in the current folder. This one has it, and below it
# the tree of the package.
debian=versewell-cli

lay_out_debian_program() {
  local tree=$1 shell
  install -D -s -m 755 "$build/host/cli/vw" "$tree/usr/bin/vw"
  strip --remove-section=.comment --remove-section=.note "$tree/usr/bin/vw"
  mkdir -p "$tree"/usr/share/{man/man1,bash-completion/completions,zsh/vendor-completions,fish/vendor_completions.d}
  "$build/host/cli/vw" manual | gzip -9n >"$tree/usr/share/man/man1/vw.1.gz"
  "$build/host/cli/vw" completion bash >"$tree/usr/share/bash-completion/completions/vw"
  "$build/host/cli/vw" completion zsh >"$tree/usr/share/zsh/vendor-completions/_vw"
  "$build/host/cli/vw" completion fish >"$tree/usr/share/fish/vendor_completions.d/vw.fish"
}

lay_out_debian_data() {
  local folder=$1/usr/share/versewell
  mkdir -p "$folder/Morning and Evening"
  cp "$build"/data/_av*.dat "$folder"
  cp "$build/data/Morning and Evening".* "$folder/Morning and Evening"
}

write_debian_copyright() {
  local package
  cat "$root/delivery/debian/copyright"
  for package in sword-text-kjv libcli11-dev nlohmann-json3-dev; do
    printf '\n---- %s ----\n\n' "$package"
    cat "/usr/share/doc/$package/copyright"
  done
}

# The items of this version in CHANGELOG.md that name vw, each in one line.
changes_of_vw() {
  awk -v version="$version" '
    function end_item() { if (item ~ /`vw( [^`]*)?`/) print item; item = "" }
    /^(## |- )/ { end_item() }
    /^## / { is_this = $2 == version }
    is_this && /^- / { item = substr($0, 3) }
    item != "" && /^  / { item = item " " substr($0, 3) }
    END { end_item() }' "$root/CHANGELOG.md"
}

write_debian_changelog() {
  local change
  printf '%s (%s) unstable; urgency=medium\n\n' "$debian" "$version"
  while IFS= read -r change; do
    fold -s -w 74 <<<"$change" | sed -E 's/ +$//; 1s/^/  * /; 2,$s/^/    /'
  done < <(changes_of_vw)
  printf '\n -- %s  %s\n' "$maintainer" "$(date -d "@$SOURCE_DATE_EPOCH" -R)"
}

# make_debian_package <folder>: writes the package into the folder.
make_debian_package() {
  local work=$stage/debian-work tree documents
  tree=$work/debian/$debian documents=$tree/usr/share/doc/$debian
  mkdir -p "$tree/DEBIAN" "$documents"
  lay_out_debian_program "$tree"
  lay_out_debian_data "$tree"
  sed "s/^Source: .*/&\nMaintainer: $maintainer/" "$root/delivery/debian/control" >"$work/debian/control"
  write_debian_changelog >"$work/debian/changelog"
  gzip -9n <"$work/debian/changelog" >"$documents/changelog.gz"
  write_debian_copyright >"$documents/copyright"
  (
    cd "$work"
    (cd "$tree" && find usr -type f -print0 | sort -z | xargs -0 md5sum >DEBIAN/md5sums)
    dpkg-shlibdeps "$tree/usr/bin/vw"
    dpkg-gencontrol -p"$debian" -P"debian/$debian" \
      "-Vtext:Built-Using=$(dpkg-query -W -f '${source:Package} (= ${source:Version})' sword-text-kjv)"
  ) >&2
  # The same bytes for every user and machine.
  chmod -R u=rwX,go=rX "$tree"
  find "$tree" -exec touch -h -d "@$SOURCE_DATE_EPOCH" {} +
  dpkg-deb --root-owner-group -Zxz --threads-max=1 --build "$tree" "$1" >&2
}
