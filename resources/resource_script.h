// Parses the resource scripts, so that tests can check them.
//
// Supports only the syntax that these scripts use: one statement per line, numbers or names of ids.h, and sums of a
// name or number and another number.
#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

struct MenuItem {
    std::vector<std::string> popups;  // from the menu bar inwards
    std::string text;                 // including "\t" and "&"
    int command = 0;
    bool newColumn = false;
};

struct Accelerator {
    std::string key;  // as shown in menus: "Ctrl+Alt+1"
    int command = 0;
};

struct DialogControl {
    std::string kind;  // LTEXT, EDITTEXT, ...; for CONTROL the style that defines its kind, such as BS_AUTOCHECKBOX
    std::string text;
    int id = 0;
    int x = 0, y = 0, width = 0, height = 0;
    std::string styles;
};

struct DialogScript {
    std::string name;
    std::string title;
    int width = 0, height = 0;
    std::string styles;
    std::vector<DialogControl> controls;
};

struct ResourceScript {
    std::vector<std::string> bar;     // the popups of the menu bar in order
    std::vector<MenuItem> menu;       // without separators
    std::vector<std::string> popups;  // every popup, preceded by its parents and separated by "/"
    std::vector<Accelerator> accelerators;
    std::vector<DialogScript> dialogs;
};

using IdTable = std::map<std::string, int, std::less<>>;

// The whole file; throws when it cannot be read.
std::string FileText(const std::string& path);

// The names and numbers in the #define lines of ids.h.
IdTable ReadIds(const std::string& path);

// Adds the content of the file `path` to `script`. Included files are read if they are in the same folder or in
// `madeFolder`, otherwise ignored. Throws when a line has an unknown form.
void ReadScript(const std::string& path, const std::string& madeFolder, const IdTable& ids, ResourceScript& script);

// The letter after the single "&" of `text` in lower case; 0 when there is none.
char AccessKey(std::string_view text);
