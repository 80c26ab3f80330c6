// The zip package workbooks of the import, .xlsx and .ods, read by liborcus into a
// factory of our own: each sheet keeps the text of the cells an import can use, a
// number as its plain text, a formula as its cached result, a shared string as its
// text. Styles, views and everything else are not asked for.
#include <zlib.h>
#include <orcus/orcus_ods.hpp>
#include <orcus/orcus_xlsx.hpp>
#include <orcus/spreadsheet/import_interface.hpp>
#include <orcus/zip_archive.hpp>
#include <orcus/zip_archive_stream.hpp>

#include <orcus/exception.hpp>

#include <algorithm>
#include <cctype>
#include <cmath>
#include <exception>
#include <memory>
#include <optional>

#include "core/NumberText.h"
#include "document/FileBytes.h"
#include "document/ImportWorkbook.h"
#include "document/SequentialFields.h"

namespace morvane {

namespace {

namespace ss = orcus::spreadsheet;

constexpr ss::row_t kRowsWanted = 32765 + 2;

std::string NumberCellText(double value) {
    return std::isfinite(value) ? PlainText(value) : std::string("#NUM!");
}

class Strings : public ss::iface::import_shared_strings {
  public:
    std::vector<std::string> texts;

    std::size_t append(std::string_view s) override {
        texts.emplace_back(s);
        return texts.size() - 1;
    }
    std::size_t add(std::string_view s) override {
        const auto it = std::find(texts.begin(), texts.end(), s);
        return it != texts.end() ? static_cast<std::size_t>(it - texts.begin()) : append(s);
    }
    void set_segment_font(std::size_t) override {}
    void set_segment_bold(bool) override {}
    void set_segment_italic(bool) override {}
    void set_segment_font_name(std::string_view) override {}
    void set_segment_font_size(double) override {}
    void set_segment_font_color(ss::color_elem_t, ss::color_elem_t, ss::color_elem_t,
                                ss::color_elem_t) override {}
    void append_segment(std::string_view s) override { segments_ += s; }
    std::size_t commit_segments() override {
        const std::size_t index = append(segments_);
        segments_.clear();
        return index;
    }
    std::string text(std::size_t index) const { return index < texts.size() ? texts[index] : ""; }

  private:
    std::string segments_;
};

class SheetCells;

// A formula's cached result, put in its cell at commit.
class FormulaCell : public ss::iface::import_formula {
  public:
    explicit FormulaCell(SheetCells& sheet) : sheet_(sheet) {}
    void set_position(ss::row_t row, ss::col_t col) override {
        row_ = row;
        col_ = col;
        result_.clear();
    }
    void set_formula(ss::formula_grammar_t, std::string_view) override {}
    void set_shared_formula_index(std::size_t) override {}
    void set_result_string(std::string_view value) override { result_ = value; }
    void set_result_value(double value) override { result_ = NumberCellText(value); }
    void set_result_bool(bool value) override { result_ = value ? "TRUE" : "FALSE"; }
    void set_result_empty() override { result_.clear(); }
    void commit() override;

  private:
    SheetCells& sheet_;
    ss::row_t row_ = 0;
    ss::col_t col_ = 0;
    std::string result_;
};

class SheetCells : public ss::iface::import_sheet {
  public:
    SheetCells(std::string name, const Strings& strings)
        : name(std::move(name)), strings_(strings), formula_(*this) {}

    std::string name;
    Sheet cells;
    bool anyCell = false;  // the reader gave a cell of any column

    void put(ss::row_t row, ss::col_t col, std::string text) {
        anyCell = true;
        if (row < 0 || col < 0 || row >= kRowsWanted || col >= kImportColumns)
            return;
        auto& rows = cells.rows;
        if (rows.size() <= static_cast<std::size_t>(row))
            rows.resize(static_cast<std::size_t>(row) + 1);
        auto& line = rows[static_cast<std::size_t>(row)];
        if (line.size() <= static_cast<std::size_t>(col))
            line.resize(static_cast<std::size_t>(col) + 1);
        line[static_cast<std::size_t>(col)] = std::move(text);
    }

    ss::iface::import_formula* get_formula() override { return &formula_; }
    void set_auto(ss::row_t row, ss::col_t col, std::string_view s) override {
        put(row, col, std::string(s));
    }
    void set_string(ss::row_t row, ss::col_t col, ss::string_id_t sindex) override {
        put(row, col, strings_.text(sindex));
    }
    void set_value(ss::row_t row, ss::col_t col, double value) override {
        put(row, col, NumberCellText(value));
    }
    void set_bool(ss::row_t row, ss::col_t col, bool value) override {
        put(row, col, value ? "TRUE" : "FALSE");
    }
    void set_date_time(ss::row_t row, ss::col_t col, int year, int month, int day, int, int,
                       double) override {
        put(row, col,
            std::to_string(year) + "-" + std::to_string(month) + "-" + std::to_string(day));
    }
    void set_format(ss::row_t, ss::col_t, std::size_t) override {}
    void set_format(ss::row_t, ss::col_t, ss::row_t, ss::col_t, std::size_t) override {}
    void fill_down_cells(ss::row_t, ss::col_t, ss::row_t) override {}
    ss::range_size_t get_sheet_size() const override { return {1048576, 16384}; }

  private:
    const Strings& strings_;
    FormulaCell formula_;
};

void FormulaCell::commit() {
    sheet_.put(row_, col_, result_);
}

// Cell addresses of the readers, "B12" or "$B$12", and ranges "A1:C4". Sheet names in
// an address ("Data!A1", and "$'Data.csv'.$A$1" as OpenDocument writes them) are not
// needed for reading cells and are skipped: a cell's part holds no "!" or ".".
class A1Resolver : public ss::iface::import_reference_resolver {
  public:
    ss::src_address_t resolve_address(std::string_view address) override {
        const std::size_t sheetEnd = address.find_last_of("!.");
        if (sheetEnd != std::string_view::npos)
            address.remove_prefix(sheetEnd + 1);
        ss::src_address_t out{0, 0, 0};
        std::size_t i = 0;
        long col = 0, row = 0;
        if (i < address.size() && address[i] == '$')
            ++i;
        for (; i < address.size() && std::isalpha(static_cast<unsigned char>(address[i])); ++i)
            col = std::min(
                col * 26 + (std::toupper(static_cast<unsigned char>(address[i])) - 'A' + 1),
                100000L);
        if (i < address.size() && address[i] == '$')
            ++i;
        for (; i < address.size() && std::isdigit(static_cast<unsigned char>(address[i])); ++i)
            row = std::min(row * 10 + (address[i] - '0'), 10000000L);
        if (col < 1 || row < 1 || i != address.size())
            throw orcus::invalid_arg_error("not a cell address");
        out.row = static_cast<ss::row_t>(row - 1);
        out.column = static_cast<ss::col_t>(col - 1);
        return out;
    }
    ss::src_range_t resolve_range(std::string_view range) override {
        const std::size_t colon = range.find(':');
        if (colon == std::string_view::npos) {
            const ss::src_address_t cell = resolve_address(range);
            return {cell, cell};
        }
        return {resolve_address(range.substr(0, colon)), resolve_address(range.substr(colon + 1))};
    }
};

class Factory : public ss::iface::import_factory {
  public:
    ss::iface::import_reference_resolver* get_reference_resolver(
        ss::formula_ref_context_t) override {
        return &resolver_;
    }
    std::vector<std::unique_ptr<SheetCells>> sheets;

    ss::iface::import_shared_strings* get_shared_strings() override { return &strings_; }
    ss::iface::import_sheet* append_sheet(ss::sheet_t, std::string_view name) override {
        sheets.push_back(std::make_unique<SheetCells>(std::string(name), strings_));
        return sheets.back().get();
    }
    ss::iface::import_sheet* get_sheet(std::string_view name) override {
        for (auto& sheet : sheets)
            if (sheet->name == name)
                return sheet.get();
        return nullptr;
    }
    ss::iface::import_sheet* get_sheet(ss::sheet_t index) override {
        return index >= 0 && static_cast<std::size_t>(index) < sheets.size()
                   ? sheets[static_cast<std::size_t>(index)].get()
                   : nullptr;
    }
    void finalize() override {}

  private:
    Strings strings_;
    A1Resolver resolver_;
};

// ---- Packages whose relationships name their parts by absolute paths
// ("/xl/worksheets/sheet1.xml"), as some libraries write them, are rewritten with
// relative targets before liborcus reads them, since it resolves only relative ones.

std::string RelativeTarget(const std::string& sourceFolder, const std::string& target) {
    // Both without a leading "/"; the folder ends with "/" or is empty.
    std::size_t common = 0;
    for (std::size_t i = 0;
         i < sourceFolder.size() && i < target.size() && sourceFolder[i] == target[i]; ++i)
        if (sourceFolder[i] == '/')
            common = i + 1;
    std::string out;
    for (std::size_t i = common; i < sourceFolder.size(); ++i)
        if (sourceFolder[i] == '/')
            out += "../";
    return out + target.substr(common);
}

// The relationships file of a part "dir/_rels/name.rels" speaks of paths in "dir/".
std::string RelativeRelationships(const std::string& entry, std::string xml) {
    const std::size_t rels = entry.rfind("_rels/");
    const std::string folder = rels == std::string::npos ? std::string() : entry.substr(0, rels);
    const std::string mark = "Target=\"/";
    for (std::size_t at = xml.find(mark); at != std::string::npos; at = xml.find(mark, at + 1)) {
        const std::size_t begin = at + mark.size();
        const std::size_t end = xml.find('"', begin);
        if (end == std::string::npos)
            break;
        const std::string target = RelativeTarget(folder, xml.substr(begin, end - begin));
        xml.replace(at + mark.size() - 1, end - begin + 1, target);
    }
    return xml;
}

// Inline strings of a worksheet (t="inlineStr" with the text in <is>), which liborcus
// drops, rewritten as formula cells whose cached result is the text (t="str", a
// formula that nothing evaluates, the text in <v>), which the factory keeps. Rich
// text runs are joined.
std::string PlainInlineStrings(std::string xml) {
    const std::string mark = "t=\"inlineStr\"";
    for (std::size_t at = xml.find(mark); at != std::string::npos; at = xml.find(mark, at)) {
        const std::size_t open = xml.find("<is>", at);
        const std::size_t close = xml.find("</is>", at);
        const std::size_t cellEnd = xml.find("</c>", at);
        if (open == std::string::npos || close == std::string::npos || close < open ||
            (cellEnd != std::string::npos && cellEnd < close)) {
            xml.replace(at, mark.size(), "t=\"str\"");
            continue;
        }
        std::string text;
        for (std::size_t t = xml.find("<t", open); t != std::string::npos && t < close;
             t = xml.find("<t", t + 1)) {
            const std::size_t begin = xml.find('>', t);
            if (begin == std::string::npos || begin > close)
                break;
            if (xml[begin - 1] == '/')
                continue;  // an empty <t/>
            const std::size_t end = xml.find("</t>", begin);
            if (end == std::string::npos || end > close)
                break;
            if (xml.compare(t, 3, "<t>") == 0 || xml.compare(t, 3, "<t ") == 0)
                text += xml.substr(begin + 1, end - begin - 1);
        }
        xml.replace(open, close + 5 - open, "<f>0</f><v>" + text + "</v>");
        xml.replace(at, mark.size(), "t=\"str\"");
    }
    return xml;
}

void PutLittle(std::string& out, std::uint32_t value, int bytes) {
    for (int i = 0; i < bytes; ++i)
        out += static_cast<char>((value >> (8 * i)) & 0xFFu);
}

// A zip of stored entries, in memory.
std::string StoredZip(const std::vector<std::pair<std::string, std::string>>& entries) {
    std::string out, directory;
    for (const auto& [name, data] : entries) {
        const auto crc = static_cast<std::uint32_t>(
            crc32(0L, reinterpret_cast<const Bytef*>(data.data()), static_cast<uInt>(data.size())));
        const auto offset = static_cast<std::uint32_t>(out.size());
        const auto size = static_cast<std::uint32_t>(data.size());
        const auto nameSize = static_cast<std::uint32_t>(name.size());
        PutLittle(out, 0x04034b50u, 4);
        PutLittle(out, 20, 2);  // version needed
        PutLittle(out, 0, 2);   // flags
        PutLittle(out, 0, 2);   // stored
        PutLittle(out, 0, 4);   // time and date
        PutLittle(out, crc, 4);
        PutLittle(out, size, 4);
        PutLittle(out, size, 4);
        PutLittle(out, nameSize, 2);
        PutLittle(out, 0, 2);
        out += name;
        out += data;
        PutLittle(directory, 0x02014b50u, 4);
        PutLittle(directory, 20, 2);
        PutLittle(directory, 20, 2);
        PutLittle(directory, 0, 2);
        PutLittle(directory, 0, 2);
        PutLittle(directory, 0, 4);
        PutLittle(directory, crc, 4);
        PutLittle(directory, size, 4);
        PutLittle(directory, size, 4);
        PutLittle(directory, nameSize, 2);
        PutLittle(directory, 0, 2);  // extra
        PutLittle(directory, 0, 2);  // comment
        PutLittle(directory, 0, 2);  // disk
        PutLittle(directory, 0, 2);  // internal attributes
        PutLittle(directory, 0, 4);  // external attributes
        PutLittle(directory, offset, 4);
        directory += name;
    }
    const auto directoryOffset = static_cast<std::uint32_t>(out.size());
    out += directory;
    PutLittle(out, 0x06054b50u, 4);
    PutLittle(out, 0, 2);
    PutLittle(out, 0, 2);
    PutLittle(out, static_cast<std::uint32_t>(entries.size()), 2);
    PutLittle(out, static_cast<std::uint32_t>(entries.size()), 2);
    PutLittle(out, static_cast<std::uint32_t>(directory.size()), 4);
    PutLittle(out, directoryOffset, 4);
    PutLittle(out, 0, 2);
    return out;
}

// A damaged package can claim a part of gigabytes, which liborcus would allocate and
// clear before it finds the damage. The sizes that the local and the central headers
// claim are checked first. A part of more than 64 MiB, a sheet far longer than a line
// can hold, is refused with the same message.
constexpr std::uint32_t kMaxPartBytes = 64u * 1024u * 1024u;

std::uint32_t Little32(const std::string& bytes, std::size_t at) {
    std::uint32_t value = 0;
    for (int i = 3; i >= 0; --i)
        value = (value << 8) | static_cast<unsigned char>(bytes[at + static_cast<std::size_t>(i)]);
    return value;
}

void CheckPartSizes(const std::string& bytes) {
    const std::string_view local{"PK\x03\x04", 4}, central{"PK\x01\x02", 4};
    for (std::size_t at = bytes.find("PK"); at != std::string::npos;
         at = bytes.find("PK", at + 1)) {
        std::size_t field = 0;
        if (bytes.compare(at, 4, local) == 0)
            field = at + 22;
        else if (bytes.compare(at, 4, central) == 0)
            field = at + 24;
        else
            continue;
        // The compressed size stands just before the uncompressed one.
        if (field + 4 <= bytes.size() &&
            (Little32(bytes, field) > kMaxPartBytes || Little32(bytes, field - 4) > kMaxPartBytes))
            throw ImportError("the workbook claims a part larger than can be read; it is damaged");
    }
}

// The package with relative targets and plain strings, or none when it needs no change.
std::optional<std::string> NormalisedPackage(const std::string& bytes) {
    orcus::zip_archive_stream_blob stream(reinterpret_cast<const std::uint8_t*>(bytes.data()),
                                          bytes.size());
    orcus::zip_archive archive(&stream);
    archive.load();
    std::vector<std::pair<std::string, std::string>> entries;
    bool changed = false;
    std::vector<unsigned char> buffer;
    for (std::size_t i = 0; i < archive.get_file_entry_count(); ++i) {
        const std::string name(archive.get_file_entry_name(i));
        buffer.clear();
        if (!archive.read_file_entry(name, buffer))
            throw ImportError("the package entry " + QuoteField(name) + " can not be read");
        std::string data(buffer.begin(), buffer.end());
        if (name.size() > 5 && name.compare(name.size() - 5, 5, ".rels") == 0 &&
            data.find("Target=\"/") != std::string::npos) {
            data = RelativeRelationships(name, std::move(data));
            changed = true;
        }
        if (name.rfind("xl/worksheets/", 0) == 0 &&
            data.find("t=\"inlineStr\"") != std::string::npos) {
            data = PlainInlineStrings(std::move(data));
            changed = true;
        }
        entries.emplace_back(name, std::move(data));
    }
    if (!changed)
        return std::nullopt;
    return StoredZip(entries);
}

// Whether the sheets of the package hold cell values, by the marks of a value in the
// parts themselves: <v> or <is> of a worksheet of an .xlsx (with or without a
// namespace prefix), a cell's value type in the content of an .ods.
bool PackageHoldsValues(const std::string& bytes, ImportFormat format) {
    orcus::zip_archive_stream_blob stream(reinterpret_cast<const std::uint8_t*>(bytes.data()),
                                          bytes.size());
    orcus::zip_archive archive(&stream);
    archive.load();
    std::vector<unsigned char> buffer;
    for (std::size_t i = 0; i < archive.get_file_entry_count(); ++i) {
        const std::string name(archive.get_file_entry_name(i));
        const bool sheetPart = format == ImportFormat::Xlsx ? name.rfind("xl/worksheets/", 0) == 0
                                                            : name == "content.xml";
        buffer.clear();
        if (!sheetPart || !archive.read_file_entry(name, buffer))
            continue;
        const std::string_view xml(reinterpret_cast<const char*>(buffer.data()), buffer.size());
        const auto holds = [&](std::string_view mark) {
            return xml.find(mark) != std::string_view::npos;
        };
        if (format == ImportFormat::Xlsx
                ? holds("<v>") || holds(":v>") || holds("<is>") || holds(":is>")
                : holds("office:value-type="))
            return true;
    }
    return false;
}

// A package whose sheets the reader gave no cell of, while its parts hold values, is
// written in a form that the reader passes over; importing it as an empty line would
// hide the data.
void CheckSomethingWasRead(const Factory& factory, const std::string& bytes, ImportFormat format) {
    for (const auto& sheet : factory.sheets)
        if (sheet->anyCell)
            return;
    if (PackageHoldsValues(bytes, format))
        throw ImportError(
            "the workbook holds cells that could not be read; it may be written in a form "
            "that Morvane does not read");
}

std::unique_ptr<Factory> ReadPackage(const std::string& path, ImportFormat format) {
    auto factory = std::make_unique<Factory>();
    try {
        const std::string bytes = ReadFileBytes(path);
        CheckPartSizes(bytes);
        if (format == ImportFormat::Xlsx) {
            orcus::orcus_xlsx reader(factory.get());
            const std::optional<std::string> normalised = NormalisedPackage(bytes);
            reader.read_stream(normalised ? *normalised : bytes);
        } else {
            orcus::orcus_ods reader(factory.get());
            reader.read_stream(bytes);
        }
        if (!factory->sheets.empty())
            CheckSomethingWasRead(*factory, bytes, format);
    } catch (const ImportError&) {
        throw;
    } catch (const std::exception& e) {
        throw ImportError(std::string("the workbook can not be read, it may be damaged or "
                                      "encrypted: ") +
                          e.what());
    }
    if (factory->sheets.empty())
        throw ImportError("the workbook holds no sheet that can be read");
    return factory;
}

}  // namespace

std::vector<std::string> OpenPackageSheetNames(const std::string& path, ImportFormat format) {
    const std::unique_ptr<Factory> book = ReadPackage(path, format);
    std::vector<std::string> names;
    for (const auto& sheet : book->sheets)
        names.push_back(sheet->name);
    return names;
}

Sheet ReadPackageSheet(const std::string& path, ImportFormat format, const std::string& sheetName) {
    const std::unique_ptr<Factory> book = ReadPackage(path, format);
    for (auto& sheet : book->sheets)
        if (sheet->name == sheetName)
            return std::move(sheet->cells);
    throw ImportError("there is no sheet named " + QuoteField(sheetName) + " in this file");
}

}  // namespace morvane
