#include "platform/win32/Fonts.h"

#include <cstring>

namespace platform {

namespace {

// Everything is laid out in fixed pixels, so the letters have a fixed height as well: 8 points at 96 dpi.
constexpr LONG kFontHeight = -11;

class Fonts {
public:
    Fonts() {
        // The structure as XP knows it: it refuses the longer one of its successors, which all take this one.
        static_assert(sizeof(NONCLIENTMETRICSA) == 340);
        NONCLIENTMETRICSA metrics{};
        metrics.cbSize = sizeof metrics;
        if (!SystemParametersInfoA(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0)) {
            metrics.lfMessageFont = {};
            std::strcpy(metrics.lfMessageFont.lfFaceName, "Tahoma");
            metrics.lfMessageFont.lfCharSet = DEFAULT_CHARSET;
        }
        LOGFONTA font = metrics.lfMessageFont;
        font.lfHeight = kFontHeight;
        font.lfWidth = 0;
        font.lfWeight = FW_NORMAL;
        normal_ = CreateFontIndirectA(&font);
        font.lfWeight = FW_BOLD;
        bold_ = CreateFontIndirectA(&font);
    }
    ~Fonts() {
        DeleteObject(normal_);
        DeleteObject(bold_);
    }
    Fonts(const Fonts&) = delete;
    Fonts& operator=(const Fonts&) = delete;

    HFONT get(Font font) const { return font == Font::Bold ? bold_ : normal_; }

private:
    HFONT normal_ = nullptr;
    HFONT bold_ = nullptr;
};

}  // namespace

HFONT fontHandle(Font font) {
    static const Fonts fonts;
    return fonts.get(font);
}

}  // namespace platform
