// Which names files of note sets may have. A set's name is typed by the user, or comes from a folder or a file that
// someone else may have made; none may lead out of the working directory or to a device.
#pragma once

#include <string>
#include <string_view>

// Can each character be part of the name of a file?
bool HasFileCharacters(std::string_view name);

// Is it a name that Windows reserves for a device, with any extension and blanks before it: CON, PRN, AUX, NUL, COM1..,
// LPT1..? (Naming Files, Paths, and Namespaces, in Microsoft's documentation of Windows)
bool IsDeviceName(std::string_view name);

// Does `name` name a file in one folder: without a folder, a drive or a stream, not "." or "..", not a device?
bool IsFileName(std::string_view name);

// Can a note set have this name? An empty name can: its files are ".nmd" and ".nmi".
bool IsSetName(std::string_view name);

// Is `path` as in NoteFiles: the name of a file in the working directory or in its folder for backups?
bool StaysInFolder(std::string_view path);
