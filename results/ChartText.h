#pragma once
// Texts of the charts that must not cover each other: the room a text takes, and a
// placer that sets each text where it meets no text placed before it.
//
// Widths are worked out from the number of characters, a little generously, so that
// the figures are laid out the same on every machine and in the tests; a face of
// the desktop is never wider than this for the digits, signs and short words of
// the charts' labels. All values are twips, y downward.

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "core/Drawing.h"

namespace morvane {

// The box a text takes on the surface.
struct TextRoom {
    double left = 0;
    double top = 0;
    double right = 0;
    double bottom = 0;
    // Two boxes meet when they share more than their edges.
    bool meets(const TextRoom& other) const {
        return left < other.right && other.left < right && top < other.bottom && other.top < bottom;
    }
    bool inside(double x1, double y1, double x2, double y2) const {
        return left >= x1 && top >= y1 && right <= x2 && bottom <= y2;
    }
};

// A character takes at most this share of an em of the label face, and every text
// a little room at its ends; a line is this many ems high.
inline constexpr double kCharacterShare = 0.66;
inline constexpr double kTextEnds = 30;
inline constexpr double kLineShare = 1.25;

double EstimatedTextWidth(const std::string& text, double points);
double EstimatedTextHeight(double points);

// The box of a drawn text by its anchor, upright or turned by 90 degrees.
TextRoom BoxOfText(const draw::Text& text);

// The boxes of every text of a drawing, in the order drawn.
std::vector<TextRoom> TextRoomsOf(const Drawing& drawing);

// Cuts a segment to the box from 0, 0 to width, height (Liang and Barsky). False
// when nothing of it lies inside.
bool ClipToBox(double& x1, double& y1, double& x2, double& y2, double width, double height);

// Places boxes so that none covers another. Boxes are filed by strips of the x axis,
// so that a place is tried only against its neighbours and hundreds of texts stay
// quick.
class TextPlacer {
  public:
    // Takes the room of a box that stays where it is (an axis label, say).
    void reserve(const TextRoom& box);
    // Whether a box would meet no box placed so far.
    bool free(const TextRoom& box) const;
    // Sets a box of the given size in the first row, counted from the wanted top in
    // the direction step (+1 downward, -1 upward), where it meets nothing placed
    // before and stays within the limits top to bottom (a wanted top beyond them is
    // brought within first). Nothing when no row fits.
    std::optional<TextRoom> place(double x, double y, double width, double height, int step,
                                  double limitTop, double limitBottom);

  private:
    static long strip(double x);
    struct Hint {
        long strip;
        long y;
        int step;
        bool operator<(const Hint& o) const;
    };
    std::vector<TextRoom> placed_;
    std::map<long, std::vector<std::size_t>> strips_;
    std::map<Hint, int> hints_;
};

}  // namespace morvane
