#include "win32/text_formats.h"

#include <memory>

#include <richole.h>
#include <tom.h>

namespace {

struct ReleaseObject {
    void operator()(IUnknown* object) const { object->Release(); }
};

template <typename Object>
using OwnedObject = std::unique_ptr<Object, ReleaseObject>;

}  // namespace

// The control's text object model, which the control has even for plain text; null without it.
static OwnedObject<ITextDocument> DocumentOf(HWND richEdit) {
    static constexpr IID kTextDocument{0x8CC497C0, 0xA1DF, 0x11CE, {0x80, 0x98, 0x00, 0xAA, 0x00, 0x47, 0xBE, 0x5D}};
    IUnknown* control = nullptr;
    SendMessageA(richEdit, EM_GETOLEINTERFACE, 0, reinterpret_cast<LPARAM>(&control));
    const OwnedObject<IUnknown> owned(control);
    void* document = nullptr;
    if (control) control->QueryInterface(kTextDocument, &document);
    return OwnedObject<ITextDocument>(static_cast<ITextDocument*>(document));
}

// Kerning of letters from this size on. None are that large, so the letter looks like the others.
static constexpr float kKerningOfHugeLetters = 1000;  // points

static void SetKerning(ITextDocument& document, std::size_t place) {
    ITextRange* range = nullptr;
    document.Range(static_cast<long>(place), static_cast<long>(place) + 1, &range);
    const OwnedObject<ITextRange> ownedRange(range);
    ITextFont* font = nullptr;
    if (range) range->GetFont(&font);
    const OwnedObject<ITextFont> ownedFont(font);
    if (font) font->SetKerning(kKerningOfHugeLetters);
}

void EndStretches(HWND richEdit, std::span<const std::size_t> places) {
    const OwnedObject<ITextDocument> document = DocumentOf(richEdit);
    if (!document) return;
    document->Undo(tomSuspend, nullptr);
    for (const std::size_t place : places) SetKerning(*document, place);
    document->Undo(tomResume, nullptr);
}
