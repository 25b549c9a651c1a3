// The system's help viewer, and replacements for it and for the browser.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "tests/driver/driver.h"

// A folder with the scripture and the complete help.
ScratchFolder FolderWithHelp();

// A request that a help viewer received.
struct HelpRequest {
    int command = 0;    // HELP_...
    std::string file;   // without its folder
    std::string macro;  // of HELP_COMMAND
    auto operator<=>(const HelpRequest&) const = default;
};
void PrintTo(const HelpRequest& request, std::ostream* out);

// A viewer that only records the requests it receives, until it is destroyed.
struct ListeningViewer;
struct EndListening {
    void operator()(ListeningViewer* viewer) const;
};
using UniqueListeningViewer = std::unique_ptr<ListeningViewer, EndListening>;
UniqueListeningViewer ListenAsViewer();

// The requests since the last call.
std::vector<HelpRequest> TakeRequests(ListeningViewer& viewer);

// While this exists, the system's viewer is replaced with a small dummy program, as on newer Windows.
struct WithoutViewer {
    WithoutViewer();
    ~WithoutViewer();
};

// While this exists, HTML pages open in a "browser" that writes their names into a file.
struct WritingBrowser {
    explicit WritingBrowser(const ScratchFolder& folder);
    ~WritingBrowser();
    std::string file;
};

// Waits for the next page in the browser and returns its path relative to the program's folder.
std::string NextPage(const Program& program, const WritingBrowser& browser);

// The window of the running viewer; null when none is running.
HWND ViewerWindow();
// Number of processes of the system's viewer, including those that have no window yet.
int ViewerCount();
// Waits until the viewer shows text, and returns it.
std::string ShownInViewer(const Program& program);
