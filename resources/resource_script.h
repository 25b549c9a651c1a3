// Reads the resource scripts as text, so that tests can compare what stands in them.
//
// Only the forms that these scripts use are known: one statement a line, numbers or names of ids.h, and a name or
// number to which another number is added.
#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

struct MenuItem {
    std::vector<std::string> popups;  // from the bar inwards
    std::string text;                 // with its tab and access key
    int command = 0;
    bool newColumn = false;
};

struct Accelerator {
    std::string key;  // as menus write it: "Ctrl+Alt+1"
    int command = 0;
};

struct DialogControl {
    std::string kind;  // LTEXT, EDITTEXT, ...; for CONTROL the last style of its kind, as BS_AUTOCHECKBOX
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
    std::vector<std::string> popups;  // every popup, joined with "/" to those that hold it
    std::vector<Accelerator> accelerators;
    std::vector<DialogScript> dialogs;
};

using IdTable = std::map<std::string, int, std::less<>>;

// The whole file; an exception when it cannot be read.
std::string FileText(const std::string& path);

// The names and numbers that the #define lines of ids.h give.
IdTable ReadIds(const std::string& path);

// Adds what `path` holds to `script`. Lines that include another file are followed if that lies in the same folder or
// in `madeFolder`; others are passed over. An exception when a line is none of the known forms.
void ReadScript(const std::string& path, const std::string& madeFolder, const IdTable& ids, ResourceScript& script);

// The letter after the single "&" of `text` in lower case, or 0.
char AccessKey(std::string_view text);
