// Random input to the note editor, compared with a plain model of an edit control.

#include <windows.h>

#include <algorithm>
#include <random>

#include <gtest/gtest.h>

#include "resources/ids.h"
#include "tests/windows/note_set_files.h"
#include "tests/windows/note_steps.h"

static constexpr int kVerse = 57;
static constexpr int kActsBetweenLooks = 40;
static constexpr int kActsBetweenSaves = 200;
static constexpr std::size_t kLongestLine = 70;  // shorter than the pane is wide, so that no line is wrapped
static constexpr std::size_t kLongestText = 1200;

// ---- The model ------------------------------------------------------------------------------------------------------

namespace {

// Places are offsets into the text, none of them inside of a line end.
struct Model {
    std::string text;
    std::size_t anchor = 0, caret = 0;  // the ends of the selection; keys with Shift move only the caret
    std::string clipboard = "pasted";

    std::size_t Start() const { return std::min(anchor, caret); }
    std::size_t End() const { return std::max(anchor, caret); }
};

}  // namespace

static bool IsPlace(const std::string& text, std::size_t place) {
    return place <= text.size() && (place == 0 || text.compare(place - 1, 2, "\r\n") != 0);
}

static std::size_t Before(const Model& model, std::size_t place) {
    if (place == 0) return 0;
    return IsPlace(model.text, place - 1) ? place - 1 : place - 2;
}

static std::size_t Behind(const Model& model, std::size_t place) {
    if (place == model.text.size()) return place;
    return IsPlace(model.text, place + 1) ? place + 1 : place + 2;
}

static std::size_t StartOfLine(const Model& model, std::size_t place) {
    const std::size_t lineEnd = model.text.substr(0, place).rfind("\r\n");
    return lineEnd == std::string::npos ? 0 : lineEnd + 2;
}

static std::size_t EndOfLine(const Model& model, std::size_t place) {
    return std::min(model.text.find("\r\n", place), model.text.size());
}

static std::ptrdiff_t LineOf(const Model& model, std::size_t place) {
    return std::count(model.text.begin(), model.text.begin() + static_cast<std::ptrdiff_t>(place), '\n');
}

// Words end at spaces and at line ends.
static bool IsWordStop(const Model& model, std::size_t place) {
    const std::string& text = model.text;
    if (place == StartOfLine(model, place) || place == EndOfLine(model, place)) return true;
    return text[place - 1] == ' ' && text[place] != ' ';
}

static std::size_t NextWord(const Model& model, std::size_t place, std::size_t (*step)(const Model&, std::size_t)) {
    do {
        place = step(model, place);
    } while (!IsWordStop(model, place));
    return place;
}

static void MoveTo(Model& model, std::size_t place, bool withShift) {
    model.caret = place;
    if (!withShift) model.anchor = place;
}

static void Replace(Model& model, const std::string& text) {
    model.text.replace(model.Start(), model.End() - model.Start(), text);
    MoveTo(model, model.Start() + text.size(), false);
}

static void Copy(Model& model) {
    if (model.anchor != model.caret) model.clipboard = model.text.substr(model.Start(), model.End() - model.Start());
}

static void Erase(Model& model, std::size_t towards) {
    if (model.anchor == model.caret) model.anchor = towards;
    Replace(model, "");
}

// ---- Acts -----------------------------------------------------------------------------------------------------------

namespace {

struct Act {
    const char* keys;  // with "Shift+" before them for `withShift`
    int weight;
    void (*apply)(Model& model, bool withShift);
    bool takesShift = false;
};

}  // namespace

static constexpr Act kActions[] = {
    {"Enter", 8, [](Model& model, bool) { Replace(model, "\r\n"); }},
    {"Shift+Enter", 2, [](Model& model, bool) { Replace(model, "\r\n"); }},
    {"Ctrl+Enter", 1, [](Model& model, bool) { Replace(model, "\r\n"); }},
    {"Left", 12, [](Model& model, bool shift) { MoveTo(model, Before(model, model.caret), shift); }, true},
    {"Right", 14, [](Model& model, bool shift) { MoveTo(model, Behind(model, model.caret), shift); }, true},
    {"Ctrl+Left", 2, [](Model& model, bool shift) { MoveTo(model, NextWord(model, model.caret, Before), shift); },
     true},
    {"Ctrl+Right", 2, [](Model& model, bool shift) { MoveTo(model, NextWord(model, model.caret, Behind), shift); },
     true},
    {"Home", 3, [](Model& model, bool shift) { MoveTo(model, StartOfLine(model, model.caret), shift); }, true},
    {"End", 4, [](Model& model, bool shift) { MoveTo(model, EndOfLine(model, model.caret), shift); }, true},
    {"Ctrl+Home", 1, [](Model& model, bool shift) { MoveTo(model, 0, shift); }, true},
    {"Ctrl+End", 2, [](Model& model, bool shift) { MoveTo(model, model.text.size(), shift); }, true},
    {"Back", 6, [](Model& model, bool) { Erase(model, Before(model, model.caret)); }},
    {"Delete", 6, [](Model& model, bool) { Erase(model, Behind(model, model.caret)); }},
    {"Ctrl+c", 2, [](Model& model, bool) { Copy(model); }},
    {"Ctrl+x", 2,
     [](Model& model, bool) {
         Copy(model);
         if (model.anchor != model.caret) Replace(model, "");
     }},
    {"Ctrl+v", 3, [](Model& model, bool) { Replace(model, model.clipboard); }},
    {"Ctrl+a", 1,
     [](Model& model, bool) {
         model.anchor = 0;
         model.caret = model.text.size();
     }},
};

// The control decides where these keys go; the model only knows what is possible.
static constexpr struct {
    const char* keys;
    bool (*isPossible)(const Model& before, const Model& after);
} kJumps[] = {
    {"Up",
     [](const Model& before, const Model& after) {
         return LineOf(before, after.caret) == std::max<std::ptrdiff_t>(LineOf(before, before.caret) - 1, 0);
     }},
    {"Down",
     [](const Model& before, const Model& after) {
         const std::ptrdiff_t last = LineOf(before, before.text.size());
         return LineOf(before, after.caret) == std::min(LineOf(before, before.caret) + 1, last);
     }},
};

namespace {

struct Trial {
    const Program& program;
    Model model;
    std::mt19937 random;
    std::vector<std::string> waiting{};  // keys that the model has had and the program has not
    std::string since{};                 // keys since the last look, for the report
};

}  // namespace

static std::size_t Pick(Trial& trial, std::size_t count) {
    return std::uniform_int_distribution<std::size_t>(0, count - 1)(trial.random);
}

static void SendWaiting(Trial& trial) {
    if (!trial.waiting.empty()) PressInOneGo(trial.program, trial.waiting);
    for (const std::string& keys : trial.waiting) trial.since += " " + keys;
    trial.waiting.clear();
}

// Compares text and selection.
static void Look(Trial& trial) {
    SendWaiting(trial);
    const TextSelection selection = RichSelection(trial.program, NoteEditOf(trial.program));
    ASSERT_EQ(TextOf(NoteEditOf(trial.program)), trial.model.text) << "after" << trial.since;
    ASSERT_EQ(static_cast<std::size_t>(selection.start), trial.model.Start()) << "after" << trial.since;
    ASSERT_EQ(static_cast<std::size_t>(selection.end), trial.model.End()) << "after" << trial.since;
    trial.since.clear();
}

static void TypeLetter(Trial& trial) {
    static constexpr char kLetters[] = "abcdefghijklmnopqrstuvwxyz     ";
    const char letter = kLetters[Pick(trial, std::size(kLetters) - 1)];
    Replace(trial.model, std::string(1, letter));
    trial.waiting.push_back(letter == ' ' ? "Space" : std::string(1, letter));
}

static std::size_t LongestLine(const std::string& text) {
    std::size_t longest = 0;
    for (std::size_t start = 0; start <= text.size();) {
        const std::size_t end = std::min(text.find("\r\n", start), text.size());
        longest = std::max(longest, end - start);
        start = end + 2;
    }
    return longest;
}

// An act after which lines would be too long is not done.
static void PressKey(Trial& trial) {
    std::vector<int> weights;
    for (const Act& act : kActions) weights.push_back(act.weight);
    const Act& act = kActions[std::discrete_distribution<std::size_t>(weights.begin(), weights.end())(trial.random)];
    const bool withShift = act.takesShift && Pick(trial, 2) == 0;
    Model after = trial.model;
    act.apply(after, withShift);
    if (LongestLine(after.text) > kLongestLine || after.text.size() > kLongestText) return;
    trial.model = after;
    trial.waiting.push_back((withShift ? "Shift+" : "") + std::string(act.keys));
}

static void Jump(Trial& trial) {
    Look(trial);
    if (testing::Test::HasFatalFailure()) return;
    const auto& jump = kJumps[Pick(trial, std::size(kJumps))];
    const bool withShift = Pick(trial, 3) == 0;
    const std::string keys = (withShift ? "Shift+" : "") + std::string(jump.keys);
    Press(trial.program, keys);
    const TextSelection selection = RichSelection(trial.program, NoteEditOf(trial.program));
    const auto start = static_cast<std::size_t>(selection.start), end = static_cast<std::size_t>(selection.end);
    Model after = trial.model;
    MoveTo(after, withShift && start != after.anchor ? start : end, withShift);
    ASSERT_EQ(after.Start(), start) << keys << " from " << trial.model.anchor << " to " << trial.model.caret;
    ASSERT_EQ(after.End(), end) << keys << " from " << trial.model.anchor << " to " << trial.model.caret;
    ASSERT_TRUE(IsPlace(after.text, after.caret)) << keys << " to " << after.caret;
    ASSERT_TRUE(jump.isPossible(trial.model, after)) << keys << " from " << trial.model.caret << " to " << after.caret;
    trial.model = after;
}

static void ClickSomewhere(Trial& trial) {
    SendWaiting(trial);
    const std::size_t place = Pick(trial, trial.model.text.size() + 1);
    const POINT point = PointOfCharacter(trial.program, NoteEditOf(trial.program), place);
    const RECT room = ClientRectOf(NoteEditOf(trial.program));
    if (!IsPlace(trial.model.text, place) || point.y < 0 || point.y >= room.bottom) return;
    Click(trial.program, NoteEditOf(trial.program), point);
    trial.since += " click:" + std::to_string(place);
    MoveTo(trial.model, place, false);
}

static void SaveAndReopen(Trial& trial) {
    Look(trial);
    Press(trial.program, "Ctrl+s");
    ASSERT_FALSE(IsShown(NoteEditorOf(trial.program)));
    const std::string data = ReadFile(trial.program.folder, "Mine.nmd");
    ASSERT_EQ(data.substr(kVerse, data.find('\0', kVerse) - kVerse), trial.model.text);
    OpenNoteEditor(trial.program);
    MoveTo(trial.model, 0, false);
}

static void ActAtRandom(Trial& trial) {
    const std::size_t kind = Pick(trial, 100);
    if (kind < 2) return ClickSomewhere(trial);
    if (kind < 8) return Jump(trial);
    if (kind < 50) return PressKey(trial);
    const bool hasRoom = LongestLine(trial.model.text) < kLongestLine && trial.model.text.size() < kLongestText;
    if (hasRoom) TypeLetter(trial);
}

struct RandomEditing : testing::TestWithParam<unsigned> {};

TEST_P(RandomEditing, FollowsAPlainModel) {
    const ScratchFolder folder = FolderWithScripture();
    WriteNoteSet(folder, "Mine", {{kVerse, "The first line.\r\n\r\nThe last."}});
    WriteSetting(folder, "MISC", "NoteVerse", std::to_string(kVerse));
    Program program = StartProgram(folder);
    PlaceFrame(program, {0, 0, 1200, 900});
    SetClipboardText("pasted");
    OpenNoteEditor(program);
    WaitUntil(program, "Paste to be enabled", [&] { return !IsGreyed(program, IDM_PASTE); });
    Trial trial{program, {"The first line.\r\n\r\nThe last."}, std::mt19937(GetParam())};
    const int acts = IsLongRun() ? 2000 : 1000;
    for (int act = 1; act <= acts && !HasFatalFailure(); ++act) {
        ActAtRandom(trial);
        if (HasFatalFailure()) break;
        if (act % kActsBetweenLooks == 0) Look(trial);
        if (HasFatalFailure()) break;
        if (act % kActsBetweenSaves == 0) SaveAndReopen(trial);
    }
    EXPECT_TRUE(IsRunning(program));
}

// Ten seeds for `./check --long`, otherwise one.
static unsigned SeedCount() {
    return IsLongRun() ? 10 : 1;
}

INSTANTIATE_TEST_SUITE_P(Seeds, RandomEditing, testing::Range(1u, SeedCount() + 1));
