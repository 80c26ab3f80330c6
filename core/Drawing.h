#pragma once
// A drawing as data: the list of operations that a chart or a printed page sends to a
// drawing surface, made by logic code and painted by one routine of the desktop
// shell on any device (a window, a bitmap, the printer).
//
// Coordinates are twips, 1440 to the inch, with the origin at the top left of the
// surface and y growing downward. Pen widths are pen units of 15 twips, one pixel of
// a screen at 96 dots per inch, as the drawing surfaces of the program count them.
// Font sizes are points. Every operation carries the pen or font it was drawn with,
// so each one can be painted on its own; the Drawing keeps the current pen, font
// and position the way a drawing surface does.

#include <cmath>
#include <cstdio>
#include <string>
#include <type_traits>
#include <utility>
#include <variant>
#include <vector>

#include "core/TextTable.h"

namespace morvane {

inline constexpr double kTwipsPerInch = 1440;
inline constexpr double kTwipsPerPoint = 20;
inline constexpr double kTwipsPerPenUnit = 15;

enum class PenStyle { Solid, Dash, Dot, DashDot, DashDotDot };

// Where a text stands against its position: Left/Top is the drawing surface's own
// "print at the current position".
enum class HorizontalAnchor { Left, Centre, Right };
enum class VerticalAnchor { Top, Middle, Bottom };

struct TextFont {
    std::string family;  // empty: the surface's default sans-serif face
    double points = 8;
    bool bold = false;
    bool italic = false;
    bool underline = false;
    friend bool operator==(const TextFont&, const TextFont&) = default;
};

namespace draw {

// Empties the surface and fills it with the colour.
struct Clear {
    Color back = kWhite;
    friend bool operator==(const Clear&, const Clear&) = default;
};
struct Line {
    double x1 = 0, y1 = 0, x2 = 0, y2 = 0;
    Color color = kBlack;
    int width = 1;
    PenStyle style = PenStyle::Solid;
    friend bool operator==(const Line&, const Line&) = default;
};
// A rectangle between two corners, outlined or filled.
struct Box {
    double x1 = 0, y1 = 0, x2 = 0, y2 = 0;
    Color color = kBlack;
    bool filled = false;
    int width = 1;
    PenStyle style = PenStyle::Solid;
    friend bool operator==(const Box&, const Box&) = default;
};
// A dot as wide as the pen, centred on the point.
struct Point {
    double x = 0, y = 0;
    Color color = kBlack;
    int width = 1;
    friend bool operator==(const Point&, const Point&) = default;
};
// One line of text; angle in degrees, counter-clockwise, about the position.
struct Text {
    double x = 0, y = 0;
    std::string text;
    TextFont font;
    Color color = kBlack;
    HorizontalAnchor horizontal = HorizontalAnchor::Left;
    VerticalAnchor vertical = VerticalAnchor::Top;
    double angle = 0;
    friend bool operator==(const Text&, const Text&) = default;
};

}  // namespace draw

using DrawOp = std::variant<draw::Clear, draw::Line, draw::Box, draw::Point, draw::Text>;

class Drawing {
  public:
    Drawing() = default;
    Drawing(double width, double height) : width_(width), height_(height) {}

    // The size of the surface in twips.
    double width() const { return width_; }
    double height() const { return height_; }
    void setSize(double width, double height) {
        width_ = width;
        height_ = height;
    }

    const std::vector<DrawOp>& ops() const { return ops_; }
    bool empty() const { return ops_.empty(); }

    // Empties the surface: what was drawn before can no longer be seen, so it is
    // dropped. The pen, the font and the colour stay; the position goes to 0, 0.
    // (Out of line: inlined into long drawing routines it makes GCC 12 warn falsely
    // of an uninitialised text inside the variant.)
    void clear(Color back = kWhite);

    void setPenWidth(int width) { penWidth_ = width < 1 ? 1 : width; }
    int penWidth() const { return penWidth_; }
    void setPenStyle(PenStyle style) { penStyle_ = style; }
    PenStyle penStyle() const { return penStyle_; }
    void setFont(const TextFont& font) { font_ = font; }
    const TextFont& font() const { return font_; }

    void line(double x1, double y1, double x2, double y2, Color color = kBlack) {
        add(draw::Line{x1, y1, x2, y2, color, penWidth_, penStyle_});
        currentX_ = x2;
        currentY_ = y2;
    }
    void box(double x1, double y1, double x2, double y2, Color color = kBlack) {
        add(draw::Box{x1, y1, x2, y2, color, false, penWidth_, penStyle_});
    }
    void fillBox(double x1, double y1, double x2, double y2, Color color) {
        add(draw::Box{x1, y1, x2, y2, color, true, penWidth_, penStyle_});
    }
    void point(double x, double y, Color color = kBlack) {
        add(draw::Point{x, y, color, penWidth_});
        currentX_ = x;
        currentY_ = y;
    }

    void setCurrentPosition(double x, double y) {
        currentX_ = x;
        currentY_ = y;
    }

    // Text with its top left corner at the current position, in the current font.
    // The position stays where it was: callers place each text.
    void print(const std::string& text, Color color = kBlack) {
        add(draw::Text{currentX_, currentY_, text, font_, color});
    }
    // Text anchored at a point of its own choosing.
    void text(double x, double y, const std::string& text, HorizontalAnchor horizontal,
              VerticalAnchor vertical, Color color = kBlack, double angle = 0) {
        add(draw::Text{x, y, text, font_, color, horizontal, vertical, angle});
    }

    // Appends another drawing's operations moved by dx, dy (its clear excepted).
    void append(const Drawing& other, double dx, double dy) {
        for (const DrawOp& op : other.ops_) {
            if (std::holds_alternative<draw::Clear>(op))
                continue;
            DrawOp moved = op;
            std::visit(
                [&](auto& o) {
                    using T = std::decay_t<decltype(o)>;
                    if constexpr (std::is_same_v<T, draw::Line> || std::is_same_v<T, draw::Box>) {
                        o.x1 += dx;
                        o.x2 += dx;
                        o.y1 += dy;
                        o.y2 += dy;
                    } else if constexpr (!std::is_same_v<T, draw::Clear>) {
                        o.x += dx;
                        o.y += dy;
                    }
                },
                moved);
            add(std::move(moved));
        }
    }

    // One line per operation, coordinates rounded to whole twips: a readable form
    // for tests ("line 0 3000 1200 3000 w1", "point 500 2000 w3", "text 10 80 50").
    std::string dump() const {
        std::string out;
        for (const DrawOp& op : ops_) {
            std::visit([&](const auto& o) { out += describe(o); }, op);
            out += '\n';
        }
        return out;
    }

  private:
    // Every operation comes in here. Out of line for the same reason as clear: the
    // vector's growth moves the variants, and inlined that makes GCC 12 warn falsely.
    void add(DrawOp op);

    static std::string whole(double v) {
        if (!std::isfinite(v))
            return "nan";
        char buffer[32];
        std::snprintf(buffer, sizeof buffer, "%.0f", std::round(v) + 0.0);
        return buffer;
    }
    static std::string colour(Color c) {
        if (c == kBlack)
            return "";
        char buffer[32];
        std::snprintf(buffer, sizeof buffer, " rgb(%d,%d,%d)", c.red, c.green, c.blue);
        return buffer;
    }
    static std::string describe(const draw::Clear&) { return "clear"; }
    static std::string describe(const draw::Line& o) {
        return "line " + whole(o.x1) + " " + whole(o.y1) + " " + whole(o.x2) + " " + whole(o.y2) +
               " w" + std::to_string(o.width) + colour(o.color);
    }
    static std::string describe(const draw::Box& o) {
        return std::string(o.filled ? "fill " : "box ") + whole(o.x1) + " " + whole(o.y1) + " " +
               whole(o.x2) + " " + whole(o.y2) + colour(o.color);
    }
    static std::string describe(const draw::Point& o) {
        return "point " + whole(o.x) + " " + whole(o.y) + " w" + std::to_string(o.width) +
               colour(o.color);
    }
    static std::string describe(const draw::Text& o) {
        return "text " + whole(o.x) + " " + whole(o.y) + " " + o.text + colour(o.color);
    }

    double width_ = 0;
    double height_ = 0;
    std::vector<DrawOp> ops_;
    int penWidth_ = 1;
    PenStyle penStyle_ = PenStyle::Solid;
    TextFont font_;
    double currentX_ = 0;
    double currentY_ = 0;
};

}  // namespace morvane
