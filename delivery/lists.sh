# The lists that ./dist makes beside the installer: what is inside, and the manifests for winget. To be sourced.
# They use $version, $name, $downloads and SOURCE_DATE_EPOCH.

day() { date -u -d "@$SOURCE_DATE_EPOCH" "+$1"; }

version_of_package() { dpkg-query -W -f '${Version}' "$1"; }

# spdx_package <id> <name> <version> <licence>: something that is in the program or beside it.
spdx_package() {
  printf '\nPackageName: %s\nSPDXID: SPDXRef-%s\nPackageVersion: %s\n' "$2" "$1" "$3"
  printf 'PackageDownloadLocation: NOASSERTION\nFilesAnalyzed: false\nPackageLicenseConcluded: %s\n' "$4"
  printf 'PackageLicenseDeclared: %s\nPackageCopyrightText: NOASSERTION\n' "$4"
}

# write_contents <folder>: an SPDX 2.3 document of the files in the folder and of what is linked into the program.
write_contents() {
  local folder=$1 file number=0 sums code
  sums=$(cd "$folder" && find . -type f | sort | xargs -d '\n' sha1sum)
  code=$(cut -d ' ' -f 1 <<<"$sums" | sort | tr -d '\n' | sha1sum | cut -d ' ' -f 1)
  cat <<END
SPDXVersion: SPDX-2.3
DataLicense: CC0-1.0
SPDXID: SPDXRef-DOCUMENT
DocumentName: $name
DocumentNamespace: https://spdx.org/spdxdocs/$name-$code
Creator: Organization: Versewell
Created: $(day %FT%TZ)

PackageName: Versewell
SPDXID: SPDXRef-Versewell
PackageVersion: $version
PackageSupplier: Organization: Versewell
PackageDownloadLocation: NOASSERTION
FilesAnalyzed: true
PackageVerificationCode: $code
PackageLicenseConcluded: NOASSERTION
PackageLicenseDeclared: NONE
PackageLicenseInfoFromFiles: NOASSERTION
PackageCopyrightText: NOASSERTION
END
  spdx_package Libstdcxx 'libstdc++ and libgcc' "$(version_of_package g++-mingw-w64-x86-64-posix)" \
    'GPL-3.0-or-later WITH GCC-exception-3.1'
  spdx_package Mingw 'mingw-w64 runtime' "$(version_of_package mingw-w64-x86-64-dev)" 'ZPL-2.1'
  spdx_package Winpthreads 'winpthreads' "$(version_of_package mingw-w64-x86-64-dev)" 'MIT AND BSD-3-Clause'
  spdx_package CLI11 'CLI11, in vw.exe' "$(version_of_package libcli11-dev)" 'BSD-3-Clause'
  spdx_package Json 'nlohmann-json, in vw.exe' "$(version_of_package nlohmann-json3-dev)" 'MIT'
  spdx_package Text 'text of the Authorized Version' "$(version_of_package sword-text-kjv)" 'NOASSERTION'
  while IFS= read -r file; do
    printf '\nFileName: %s\nSPDXID: SPDXRef-File-%d\n' "$file" $((++number))
    printf 'FileChecksum: SHA1: %s\n' "$(sha1sum <"$folder/$file" | cut -d ' ' -f 1)"
    printf 'FileChecksum: SHA256: %s\n' "$(sha256sum <"$folder/$file" | cut -d ' ' -f 1)"
    printf 'LicenseConcluded: NOASSERTION\nLicenseInfoInFile: NOASSERTION\nFileCopyrightText: NOASSERTION\n'
  done < <(cd "$folder" && find . -type f | sort)
  printf '\nRelationship: SPDXRef-DOCUMENT DESCRIBES SPDXRef-Versewell\n'
  printf 'Relationship: SPDXRef-Versewell STATIC_LINK SPDXRef-%s\n' Libstdcxx Mingw Winpthreads CLI11 Json
  printf 'Relationship: SPDXRef-Versewell CONTAINS SPDXRef-Text\n'
}

# winget_manifest <type> <file>: what all three manifests have; the rest comes from the standard input.
winget_manifest() {
  {
    printf '# yaml-language-server: $schema=https://aka.ms/winget-manifest.%s.1.6.0.schema.json\n' "$1"
    printf 'PackageIdentifier: Versewell.Versewell\nPackageVersion: %s\n' "$version"
    cat
    printf 'ManifestType: %s\nManifestVersion: 1.6.0\n' "$1"
  } >"$2"
}

# write_winget_manifests <folder> <installer>
write_winget_manifests() {
  local file=$1/Versewell.Versewell digest
  digest=$(sha256sum <"$2" | cut -d ' ' -f 1)
  winget_manifest version "$file.yaml" <<<'DefaultLocale: en-US'
  winget_manifest installer "$file.installer.yaml" <<END
Platform:
- Windows.Desktop
InstallerType: nullsoft
Scope: user
InstallModes:
- interactive
- silent
UpgradeBehavior: install
ReleaseDate: $(day %F)
AppsAndFeaturesEntries:
- DisplayName: Versewell
  Publisher: Versewell
  DisplayVersion: $version
  ProductCode: Versewell
Installers:
- Architecture: x64
  InstallerUrl: $downloads/${2##*/}
  InstallerSha256: ${digest^^}
END
  winget_manifest defaultLocale "$file.locale.en-US.yaml" <<END
PackageLocale: en-US
Publisher: Versewell
PackageName: Versewell
License: No licence chosen
ShortDescription: Reads and searches the Authorized Version of the Bible, with notes on its verses.
Tags:
- bible
- notes
END
}
