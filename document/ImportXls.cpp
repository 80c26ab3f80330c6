// Legacy workbooks (.xls) of the import, read with FreeXL in a child process.
//
// FreeXL trusts the lengths that a workbook's records claim, and on a damaged file it
// reads past its buffers. So the library never runs in the program itself: a child
// process opens the workbook, reads what is asked and sends it back over a pipe as
// length-prefixed strings. A child that dies, or that is still reading after a minute,
// means a damaged file, which the import tells like any other that can't be read.
#include <freexl.h>
#include <poll.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cmath>
#include <cstdint>
#include <exception>
#include <functional>

#include "core/NumberText.h"
#include "document/ImportWorkbook.h"
#include "document/SequentialFields.h"

namespace morvane {

namespace {

// The rows an import can read: a header, a full line and the row that ends it.
constexpr unsigned kRowsWanted = 32765u + 2u;

std::string FreeXLReason(int code) {
    switch (code) {
        case FREEXL_FILE_NOT_FOUND:
            return "the file was not found";
        case FREEXL_BIFF_PASSWORD:
            return "the workbook is protected by a password";
        case FREEXL_INSUFFICIENT_MEMORY:
            return "there is not enough memory to read the workbook";
        default:
            return "the file is no workbook that can be read, or it is damaged (FreeXL error " +
                   std::to_string(code) + ")";
    }
}

// An open legacy workbook, closed when it goes.
class XlsWorkbook {
  public:
    explicit XlsWorkbook(const std::string& path) {
        const int rc = freexl_open(path.c_str(), &handle_);
        if (rc != FREEXL_OK) {
            if (handle_)
                freexl_close(handle_);
            handle_ = nullptr;
            throw ImportError(FreeXLReason(rc));
        }
        unsigned int password = 0;
        if (freexl_get_info(handle_, FREEXL_BIFF_PASSWORD, &password) == FREEXL_OK &&
            password == FREEXL_BIFF_OBFUSCATED) {
            freexl_close(handle_);
            throw ImportError(FreeXLReason(FREEXL_BIFF_PASSWORD));
        }
    }
    ~XlsWorkbook() {
        if (handle_)
            freexl_close(handle_);
    }
    XlsWorkbook(const XlsWorkbook&) = delete;
    XlsWorkbook& operator=(const XlsWorkbook&) = delete;

    std::vector<std::string> sheetNames() const {
        unsigned int count = 0;
        check(freexl_get_info(handle_, FREEXL_BIFF_SHEET_COUNT, &count));
        std::vector<std::string> names;
        for (unsigned int i = 0; i < count && i < 0xFFFFu; ++i) {
            const char* name = nullptr;
            check(freexl_get_worksheet_name(handle_, static_cast<unsigned short>(i), &name));
            names.emplace_back(name ? name : "");
        }
        return names;
    }

    Sheet read(unsigned short index) const {
        check(freexl_select_active_worksheet(handle_, index));
        unsigned int rows = 0;
        unsigned short columns = 0;
        check(freexl_worksheet_dimensions(handle_, &rows, &columns));
        Sheet sheet;
        const unsigned int rowCount = std::min(rows, kRowsWanted);
        const unsigned short colCount =
            std::min<unsigned short>(columns, static_cast<unsigned short>(kImportColumns));
        sheet.rows.resize(rowCount);
        for (unsigned int r = 0; r < rowCount; ++r) {
            std::vector<std::string>& cells = sheet.rows[r];
            cells.resize(colCount);
            for (unsigned short c = 0; c < colCount; ++c) {
                FreeXL_CellValue value{};
                check(freexl_get_cell_value(handle_, r, c, &value));
                cells[c] = CellText(value);
            }
        }
        return sheet;
    }

  private:
    static void check(int rc) {
        if (rc != FREEXL_OK)
            throw ImportError(FreeXLReason(rc));
    }

    static std::string CellText(const FreeXL_CellValue& value) {
        switch (value.type) {
            case FREEXL_CELL_INT:
                return std::to_string(value.value.int_value);
            case FREEXL_CELL_DOUBLE:
                return std::isfinite(value.value.double_value) ? PlainText(value.value.double_value)
                                                               : std::string("#NUM!");
            case FREEXL_CELL_TEXT:
            case FREEXL_CELL_SST_TEXT:
            case FREEXL_CELL_DATE:
            case FREEXL_CELL_DATETIME:
            case FREEXL_CELL_TIME:
                return value.value.text_value ? value.value.text_value : "";
            default:
                return "";
        }
    }

    const void* handle_ = nullptr;
};

// ---- What the child sends: strings, each after its length in four bytes.

void PutCount(std::string& out, std::size_t count) {
    for (int i = 0; i < 4; ++i)
        out += static_cast<char>((count >> (8 * i)) & 0xFFu);
}

void PutString(std::string& out, const std::string& text) {
    PutCount(out, text.size());
    out += text;
}

class Received {
  public:
    explicit Received(std::string bytes) : bytes_(std::move(bytes)) {}

    std::size_t count() {
        if (bytes_.size() - at_ < 4)
            Broken();
        std::size_t value = 0;
        for (int i = 3; i >= 0; --i)
            value = (value << 8) |
                    static_cast<unsigned char>(bytes_[at_ + static_cast<std::size_t>(i)]);
        at_ += 4;
        return value;
    }
    std::string text() {
        const std::size_t size = count();
        if (bytes_.size() - at_ < size)
            Broken();
        std::string out = bytes_.substr(at_, size);
        at_ += size;
        return out;
    }

  private:
    [[noreturn]] static void Broken() {
        throw ImportError("the reader of the workbook sent an incomplete answer");
    }
    std::string bytes_;
    std::size_t at_ = 0;
};

std::string EncodeNames(const std::vector<std::string>& names) {
    std::string out;
    PutCount(out, names.size());
    for (const std::string& name : names)
        PutString(out, name);
    return out;
}

std::vector<std::string> DecodeNames(Received in) {
    std::vector<std::string> names(in.count());
    for (std::string& name : names)
        name = in.text();
    return names;
}

std::string EncodeSheet(const Sheet& sheet) {
    std::string out;
    PutCount(out, sheet.rows.size());
    for (const auto& cells : sheet.rows) {
        PutCount(out, cells.size());
        for (const std::string& cell : cells)
            PutString(out, cell);
    }
    return out;
}

Sheet DecodeSheet(Received in) {
    Sheet sheet;
    const std::size_t rows = in.count();
    if (rows > kRowsWanted)
        throw ImportError("the reader of the workbook sent more rows than were asked for");
    sheet.rows.resize(rows);
    for (auto& cells : sheet.rows) {
        const std::size_t count = in.count();
        if (count > static_cast<std::size_t>(kImportColumns))
            throw ImportError("the reader of the workbook sent more cells than were asked for");
        cells.resize(count);
        for (std::string& cell : cells)
            cell = in.text();
    }
    return sheet;
}

// ---- The child process.

void WriteAll(int fd, const std::string& bytes) {
    std::size_t done = 0;
    while (done < bytes.size()) {
        const ssize_t n = write(fd, bytes.data() + done, bytes.size() - done);
        if (n < 0 && errno == EINTR)
            continue;
        if (n <= 0)
            return;
        done += static_cast<std::size_t>(n);
    }
}

// The child: runs the work, writes "R" and its answer or "E" and the reason, and ends
// without running the program's exit handlers.
[[noreturn]] void RunChild(int fd, const std::function<std::string()>& work) {
    std::string answer;
    try {
        answer = "R" + work();
    } catch (const std::exception& e) {
        answer = std::string("E") + e.what();
    } catch (...) {
        answer = "Ethe workbook can not be read";
    }
    WriteAll(fd, answer);
    close(fd);
    _exit(0);
}

constexpr auto kChildTime = std::chrono::seconds(60);

// Everything the child writes until it closes the pipe; false when it took too long.
bool ReadAll(int fd, std::string& out) {
    const auto deadline = std::chrono::steady_clock::now() + kChildTime;
    char buffer[65536];
    for (;;) {
        const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(
            deadline - std::chrono::steady_clock::now());
        if (left.count() <= 0)
            return false;
        pollfd wait{fd, POLLIN, 0};
        const int ready = poll(&wait, 1, static_cast<int>(left.count()));
        if (ready < 0 && errno == EINTR)
            continue;
        if (ready == 0)
            return false;
        if (ready < 0)
            return true;  // the pipe failed: what came so far is judged as it is
        const ssize_t n = read(fd, buffer, sizeof buffer);
        if (n < 0 && errno == EINTR)
            continue;
        if (n <= 0)
            return true;
        out.append(buffer, static_cast<std::size_t>(n));
    }
}

// The answer of the work done in a child process. The reason the child gave, a child
// that died and a child that hung are each an ImportError.
std::string InChild(const std::function<std::string()>& work) {
    int fds[2];
    if (pipe(fds) != 0)
        throw ImportError("the reader of the workbook could not be started");
    const pid_t pid = fork();
    if (pid < 0) {
        close(fds[0]);
        close(fds[1]);
        throw ImportError("the reader of the workbook could not be started");
    }
    if (pid == 0) {
        close(fds[0]);
        RunChild(fds[1], work);
    }
    close(fds[1]);
    std::string answer;
    const bool ended = ReadAll(fds[0], answer);
    close(fds[0]);
    if (!ended)
        kill(pid, SIGKILL);
    int status = 0;
    while (waitpid(pid, &status, 0) < 0 && errno == EINTR) {
    }
    if (!ended)
        throw ImportError("the reading of the workbook did not end; the file is damaged");
    if (!WIFEXITED(status) || WEXITSTATUS(status) != 0 || answer.empty())
        throw ImportError("the reader of the workbook stopped on the damaged file");
    if (answer[0] == 'E')
        throw ImportError(answer.substr(1));
    return answer.substr(1);
}

}  // namespace

std::vector<std::string> XlsSheetNames(const std::string& path) {
    return DecodeNames(
        Received(InChild([&] { return EncodeNames(XlsWorkbook(path).sheetNames()); })));
}

Sheet ReadXlsSheet(const std::string& path, const std::string& sheetName) {
    return DecodeSheet(Received(InChild([&] {
        const XlsWorkbook book(path);
        const std::vector<std::string> names = book.sheetNames();
        const auto it = std::find(names.begin(), names.end(), sheetName);
        if (it == names.end())
            throw ImportError("there is no sheet named " + QuoteField(sheetName) + " in this file");
        return EncodeSheet(book.read(static_cast<unsigned short>(it - names.begin())));
    })));
}

}  // namespace morvane
