// Separate from the status bar, which needs Windows, so that it can be tested with a ruler of its own.
#include "pane/fitted_text.h"

static constexpr char kEllipsis[] = "...";

static bool Fits(const std::string& text, int room, const TextRuler& ruler) {
    return ruler.width(ruler.device, text) <= room;
}

static std::string Cut(std::string_view text, std::size_t letters) {
    const std::size_t last = text.substr(0, letters).find_last_not_of(' ');
    return std::string(text.substr(0, last + 1)) + kEllipsis;  // npos + 1 is 0
}

std::string FittedText(std::string_view text, int room, const TextRuler& ruler) {
    const std::string whole(text);
    if (Fits(whole, room, ruler)) return whole;
    std::size_t fits = 0, tooMany = whole.size() + 1;
    while (tooMany - fits > 1) {
        const std::size_t middle = fits + (tooMany - fits) / 2;
        (Fits(Cut(text, middle), room, ruler) ? fits : tooMany) = middle;
    }
    return Cut(text, fits);
}
