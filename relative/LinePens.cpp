#include "relative/LinePens.h"

#include <array>
#include <stdexcept>
#include <string>

namespace morvane {

std::uint32_t PaletteColor(int entry) {
    static constexpr std::array<std::uint32_t, 16> kPalette{
        0x000000, 0x000080, 0x008000, 0x008080, 0x800000, 0x800080, 0x808000, 0xC0C0C0,
        0x808080, 0x0000FF, 0x00FF00, 0x00FFFF, 0xFF0000, 0xFF00FF, 0xFFFF00, 0xFFFFFF};
    if (entry < 0 || entry > 15)
        throw std::out_of_range("palette entry " + std::to_string(entry));
    return kPalette[static_cast<std::size_t>(entry)];
}

LinePens AssignLinePens(int lines, int size) {
    LinePens pens;
    const auto entries = static_cast<std::size_t>(size > lines ? size : lines + 1);
    pens.colors.assign(entries, 0);
    pens.styles.assign(entries, 0);
    int color = 7;
    int style = -1;
    for (int i = 1; i <= lines; ++i) {
        ++color;
        if (color == 14)
            color -= 14;
        ++style;
        if (style == 5)
            style = 0;
        pens.colors[static_cast<std::size_t>(i)] = PaletteColor(color);
        pens.styles[static_cast<std::size_t>(i)] = static_cast<std::int16_t>(style);
    }
    return pens;
}

}  // namespace morvane
