// Stand-ins for what opens the help, and the real one.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "tests/driver/driver.h"

// A folder with the scripture and all of the help beside it.
ScratchFolder FolderWithHelp();

// What a viewer of help files was told.
struct HelpRequest {
    int command = 0;    // HELP_...
    std::string file;   // without its folder
    std::string macro;  // of HELP_COMMAND
    auto operator<=>(const HelpRequest&) const = default;
};
void PrintTo(const HelpRequest& request, std::ostream* out);

// A viewer that shows nothing and remembers what it was told, as long as it lives.
struct ListeningViewer;
struct EndListening {
    void operator()(ListeningViewer* viewer) const;
};
using UniqueListeningViewer = std::unique_ptr<ListeningViewer, EndListening>;
UniqueListeningViewer ListenAsViewer();

// What was told since the last question.
std::vector<HelpRequest> TakeRequests(ListeningViewer& viewer);

// The system's viewer is gone, with a small program in its place as newer Windows has it, as long as this lives.
struct WithoutViewer {
    WithoutViewer();
    ~WithoutViewer();
};

// Pages go to a browser that writes their names into a file, as long as this lives.
struct WritingBrowser {
    explicit WritingBrowser(const ScratchFolder& folder);
    ~WritingBrowser();
    std::string file;
};

// The page that the browser was given next, without the folder that the program lies in.
std::string NextPage(const Program& program, const WritingBrowser& browser);

// The window of the viewer that runs; null when none does.
HWND ViewerWindow();
// Its text, once it shows any.
std::string ShownInViewer(const Program& program);
