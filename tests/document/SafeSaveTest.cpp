// Saving never loses data and opening never hangs: the careful save (links followed,
// mode and owner kept, read-only files and hard links refused, a short temporary name,
// no temporary file left after a failure, the umask left alone), the limits of the line
// file checked before anything is written, and the opening of plain files only.
#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include <atomic>
#include <csignal>
#include <fstream>
#include <thread>

#include "DocumentTestSupport.h"
#include "document/LineFileChecks.h"
#include "document/LineFileFormat.h"

namespace morvane::testing {
namespace {

class SafeSaveTest : public DocumentTest {
  protected:
    SafeSaveTest() { oldHandler_ = std::signal(SIGXFSZ, SIG_IGN); }
    ~SafeSaveTest() override { std::signal(SIGXFSZ, oldHandler_); }

    void TypeTwoRows() {
        StartLine(DataType::TotalAndResponded, "mg");
        Type("1", "20", "5");
        Type("2", "20", "10");
        doc.setTextDose("");
    }

    // Saves the document to a path that already has a name.
    void SaveTo(const std::string& path) {
        port.saveAnswers.push_back(path);
        port.answers.push_back(Answer::Yes);  // replace, when asked
        doc.CommandSave();
    }

    std::vector<std::string> Entries(const std::string& dir) const {
        std::vector<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(dir))
            names.push_back(entry.path().filename().string());
        std::sort(names.begin(), names.end());
        return names;
    }

    static mode_t ModeOf(const std::string& path) {
        struct stat info {};
        ::lstat(path.c_str(), &info);
        return info.st_mode & 07777;
    }

  private:
    void (*oldHandler_)(int) = nullptr;
};

TEST_F(SafeSaveTest, AReadOnlyFileIsRefusedAndKept) {
    const std::string path = folder.file("locked.mrv");
    WriteBytes(path, "old content");
    ::chmod(path.c_str(), 0444);
    TypeTwoRows();
    SaveTo(path);
    EXPECT_EQ(LastMessage(),
              "An error occurred while saving this file.\nThe file \"locked.mrv\" is read-only. "
              "Save it under another name, or make it writable first.");
    EXPECT_EQ(ReadBytes(path), "old content");
    EXPECT_EQ(ModeOf(path), 0444u);
    EXPECT_EQ(doc.file().Modified(), 1);
    EXPECT_EQ(Entries(folder.path()), std::vector<std::string>{"locked.mrv"});
}

TEST_F(SafeSaveTest, ASymbolicLinkIsFollowedAndStaysALink) {
    std::filesystem::create_directory(folder.file("data"));
    std::filesystem::create_directory(folder.file("links"));
    const std::string target = folder.file("data/real.mrv");
    WriteBytes(target, "old content");
    ::chmod(target.c_str(), 0640);
    const std::string link = folder.file("links/line.mrv");
    std::filesystem::create_symlink("../data/real.mrv", link);
    TypeTwoRows();
    SaveTo(link);
    EXPECT_TRUE(port.messages.empty() || port.messages.back().text.rfind("File with", 0) == 0);
    EXPECT_TRUE(std::filesystem::is_symlink(link));
    EXPECT_EQ(std::filesystem::read_symlink(link).string(), "../data/real.mrv");
    EXPECT_EQ(ReadBytes(target).substr(0, 2), "2,");
    EXPECT_EQ(ModeOf(target), 0640u);
    EXPECT_EQ(Entries(folder.file("data")), std::vector<std::string>{"real.mrv"});
    EXPECT_EQ(Entries(folder.file("links")), std::vector<std::string>{"line.mrv"});
    EXPECT_EQ(doc.file().Modified(), 0);
}

TEST_F(SafeSaveTest, ALinkToAFileNotYetMadeCreatesItsTarget) {
    const std::string link = folder.file("ahead.mrv");
    std::filesystem::create_symlink("made-later.mrv", link);
    TypeTwoRows();
    SaveTo(link);
    EXPECT_TRUE(std::filesystem::is_symlink(link));
    EXPECT_EQ(ReadBytes(folder.file("made-later.mrv")).substr(0, 2), "2,");
}

TEST_F(SafeSaveTest, TheModeOfTheOldFileIsKept) {
    const std::string path = folder.file("shared.mrv");
    WriteBytes(path, "old content");
    ::chmod(path.c_str(), 0604);
    TypeTwoRows();
    SaveTo(path);
    EXPECT_EQ(ModeOf(path), 0604u);
    EXPECT_EQ(ReadBytes(path).substr(0, 2), "2,");
}

TEST_F(SafeSaveTest, TheOwnerAndGroupOfTheOldFileAreKeptWhereTheProcessMay) {
    if (::geteuid() != 0)
        GTEST_SKIP() << "only a process of the superuser may give a file to another owner";
    const std::string path = folder.file("theirs.mrv");
    WriteBytes(path, "old content");
    ASSERT_EQ(::chown(path.c_str(), 4321, 8765), 0);
    TypeTwoRows();
    SaveTo(path);
    struct stat info {};
    ASSERT_EQ(::stat(path.c_str(), &info), 0);
    EXPECT_EQ(info.st_uid, 4321u);
    EXPECT_EQ(info.st_gid, 8765u);
    EXPECT_EQ(ReadBytes(path).substr(0, 2), "2,");
}

TEST_F(SafeSaveTest, ANewFileGetsTheModeTheUmaskGives) {
    const mode_t saved = ::umask(027);
    TypeTwoRows();
    SaveTo(folder.file("fresh.mrv"));
    const mode_t after = ::umask(saved);
    EXPECT_EQ(after, 027u);
    EXPECT_EQ(ModeOf(folder.file("fresh.mrv")), 0640u);
}

// The umask belongs to the whole process: while one thread saves, another that reads
// it must never see it changed.
TEST_F(SafeSaveTest, SavingNeverChangesTheUmask) {
    const std::string path = folder.file("many.mrv");
    std::atomic<bool> done{false};
    std::atomic<int> changed{0};
    std::thread watcher([&] {
        while (!done) {
            std::ifstream status("/proc/self/status");
            std::string line;
            while (std::getline(status, line))
                if (line.rfind("Umask:", 0) == 0 && line.find("0000") != std::string::npos)
                    ++changed;
        }
    });
    for (int i = 0; i < 100; ++i) {
        std::filesystem::remove(path);
        ReplaceFileContents(path, "2,\r\n");
    }
    done = true;
    watcher.join();
    EXPECT_EQ(changed, 0);
}

TEST_F(SafeSaveTest, AFileWithSeveralHardLinksIsRefused) {
    const std::string path = folder.file("one.mrv");
    WriteBytes(path, "old content");
    std::filesystem::create_hard_link(path, folder.file("two.mrv"));
    TypeTwoRows();
    SaveTo(path);
    EXPECT_EQ(LastMessage(),
              "An error occurred while saving this file.\nThe file \"one.mrv\" has 2 names (hard "
              "links), and saving would part it from the others. Save it under another name.");
    EXPECT_EQ(ReadBytes(path), "old content");
    EXPECT_EQ(ReadBytes(folder.file("two.mrv")), "old content");
    EXPECT_EQ(Entries(folder.path()), (std::vector<std::string>{"one.mrv", "two.mrv"}));
}

TEST_F(SafeSaveTest, ANameOfTheLongestLengthCanBeSaved) {
    const std::string name = std::string(251, 'n') + ".mrv";  // 255 bytes
    TypeTwoRows();
    SaveTo(folder.file(name));
    EXPECT_EQ(doc.file().Modified(), 0);
    EXPECT_EQ(ReadBytes(folder.file(name)).substr(0, 2), "2,");
    EXPECT_EQ(Entries(folder.path()), std::vector<std::string>{name});
}

TEST_F(SafeSaveTest, APipeIsNoPlaceToSave) {
    const std::string path = folder.file("pipe.mrv");
    ASSERT_EQ(::mkfifo(path.c_str(), 0644), 0);
    TypeTwoRows();
    SaveTo(path);
    EXPECT_EQ(LastMessage(),
              "An error occurred while saving this file.\n\"pipe.mrv\" is a pipe, not a file. "
              "Only plain files can be opened or saved.");
    EXPECT_EQ(Entries(folder.path()), std::vector<std::string>{"pipe.mrv"});
}

TEST_F(SafeSaveTest, AWriteBeyondTheFileSizeLimitFailsCleanly) {
    const std::string path = folder.file("kept.mrv");
    WriteBytes(path, "old content");
    rlimit saved{};
    ::getrlimit(RLIMIT_FSIZE, &saved);
    rlimit limit = saved;
    limit.rlim_cur = 40;
    ::setrlimit(RLIMIT_FSIZE, &limit);
    EXPECT_THROW(ReplaceFileContents(path, std::string(100, 'x')), FileError);
    ::setrlimit(RLIMIT_FSIZE, &saved);
    EXPECT_EQ(ReadBytes(path), "old content");
    EXPECT_EQ(Entries(folder.path()), std::vector<std::string>{"kept.mrv"});
}

// ---- The limits of the format, checked before anything is written.

TEST_F(SafeSaveTest, MoreRowsThanTheFileCanCountAreRefusedAndNothingIsWritten) {
    TypeTwoRows();
    const std::string path = folder.file("big.mrv");
    SaveTo(path);
    const std::string saved = ReadBytes(path);
    TextTable grid = doc.Grid1();
    grid.setRows(kMaxLineFileRows + 1);
    try {
        WriteCheckedLineFile(doc.fileOptions().controls, grid, doc.notes());
        FAIL() << "the table was written";
    } catch (const LineFileLimitError& e) {
        EXPECT_STREQ(e.what(),
                     "The table has 32766 rows, and a line file holds at most 32765. Split the "
                     "rows into two lines, and save each in a file of its own.");
    }
    grid.setRows(kMaxLineFileRows);  // the most the size record can count
    const std::string bytes = WriteCheckedLineFile(doc.fileOptions().controls, grid, doc.notes());
    FieldReader in(bytes);
    ReadVersionRecord(in);
    FileOptions options;
    ReadOptionsRecord(in, options, shared);
    EXPECT_EQ(ReadSizeRecord(in).rows, kMaxLineFileRows);
    EXPECT_EQ(ReadBytes(path), saved);
}

// Builds an older file whose rows, once accepted, pass what a current file can count.
std::string OlderFileOfManyRows(int replicatesPerDose) {
    const int lastRow = 4 + replicatesPerDose;
    std::string text = "1,0,0,0,0,0\r\n0,\"mg\",0,\"\",1,0,\"\"," + std::to_string(lastRow) +
                       ",3,\"\",\"Dose\",\"LD\",\"\",0,\"0.05\",\"\",\"\",0,0,0,\"\",\"\"\r\n";
    for (int r = 0; r <= lastRow; ++r) {
        if (r == 0)
            text += "\"1\",\"\",\"2\",\"\",";
        else if (r < 5)
            text += "\"\",\"\",\"\",\"\",";
        else
            text += "\"5\",\"15\",\"6\",\"14\",";
    }
    text += "0,0\r\n\"\",\"\",\"\",\"\",\"\"\r\n";
    return text;
}

TEST_F(SafeSaveTest, AnOlderLineOfTooManyRowsIsRefusedAtSaving) {
    const std::string older = folder.file("older.mrv");
    WriteBytes(older, OlderFileOfManyRows(16383));  // 32,766 rows in all
    ASSERT_TRUE(doc.OpenLineFile(older));
    ASSERT_EQ(doc.Grid1().rows(), 32768);
    const std::string path = folder.file("current.mrv");
    SaveTo(path);
    EXPECT_EQ(LastMessage(),
              "An error occurred while saving this file.\nThe table has 32766 rows, and a line "
              "file holds at most 32765. Split the rows into two lines, and save each in a file "
              "of its own.");
    EXPECT_FALSE(std::filesystem::exists(path));
    EXPECT_EQ(doc.file().Modified(), 0);
    EXPECT_TRUE(doc.file().CommandSaveEnabled());
}

TEST_F(SafeSaveTest, ADoubleQuoteInANoteIsRefusedAtSaving) {
    TypeTwoRows();
    NotesSheet notes = doc.notes();
    notes.MoreInformation = "a \"quoted\" word";
    try {
        WriteCheckedLineFile(doc.fileOptions().controls, doc.Grid1(), notes);
        FAIL() << "the notes were written";
    } catch (const LineFileLimitError& e) {
        EXPECT_STREQ(e.what(),
                     "The \"More information\" note holds a double quote (\"), which a line file "
                     "cannot hold. Take it out and save again.");
    }
}

TEST_F(SafeSaveTest, NotesLargerThanAnyLineFileAreRefused) {
    TypeTwoRows();
    NotesSheet notes = doc.notes();
    notes.MoreInformation = std::string(kMaxLineFileBytes, 'x');
    try {
        WriteCheckedLineFile(doc.fileOptions().controls, doc.Grid1(), notes);
        FAIL() << "the notes were written";
    } catch (const LineFileLimitError& e) {
        const std::string text = e.what();
        EXPECT_EQ(text.substr(0, 22), "The line would take 16");
        EXPECT_NE(text.find("a line file holds at most 16777216. Shorten the notes, or split "
                            "the rows into two lines."),
                  std::string::npos);
    }
}

// ---- Opening plain files only, never blocking.

TEST_F(SafeSaveTest, APipeIsRefusedAtOnce) {
    const std::string path = folder.file("waiting.mrv");
    ASSERT_EQ(::mkfifo(path.c_str(), 0644), 0);
    TypeTwoRows();
    EXPECT_FALSE(doc.OpenLineFile(path));  // would block forever if it waited for a writer
    EXPECT_EQ(LastMessage(),
              "An error occurred while opening this file.\n\"waiting.mrv\" is a pipe, not a "
              "file. Only plain files can be opened or saved.");
}

TEST_F(SafeSaveTest, ADeviceIsRefused) {
    EXPECT_FALSE(doc.OpenLineFile("/dev/zero"));
    EXPECT_EQ(LastMessage(),
              "An error occurred while opening this file.\n\"zero\" is a device, not a file. Only "
              "plain files can be opened or saved.");
}

TEST_F(SafeSaveTest, ASocketIsRefused) {
    const std::string path = folder.file("s.mrv");
    const int fd = ::socket(AF_UNIX, SOCK_STREAM, 0);
    ASSERT_GE(fd, 0);
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    ASSERT_LT(path.size(), sizeof address.sun_path);
    std::copy(path.begin(), path.end(), address.sun_path);
    ASSERT_EQ(::bind(fd, reinterpret_cast<sockaddr*>(&address), sizeof address), 0);
    EXPECT_FALSE(doc.OpenLineFile(path));
    ::close(fd);
    EXPECT_EQ(LastMessage(),
              "An error occurred while opening this file.\n\"s.mrv\" is a socket, not a file. "
              "Only plain files can be opened or saved.");
}

TEST_F(SafeSaveTest, AFileLargerThanAnyLineIsRefusedUnread) {
    const std::string path = folder.file("huge.mrv");
    {
        std::ofstream out(path, std::ios::binary);
        out << "2,";
    }
    std::filesystem::resize_file(path, kMaxLineFileBytes + 1);
    EXPECT_FALSE(doc.OpenLineFile(path));
    EXPECT_EQ(LastMessage(),
              "An error occurred while opening this file.\nThe file is too large: 16777217 bytes, "
              "and no line file is larger than 16777216 bytes.");
}

// ---- A failed opening: a short message, and nothing of the bad file left behind.

TEST_F(SafeSaveTest, TheMessageQuotesABadFieldShortlyWithItsPlace) {
    const std::string path = folder.file("bad.mrv");
    std::string junk = std::string(100, 'z');
    junk[3] = '\x01';
    junk[4] = '\xff';
    WriteBytes(path, "2,\"\",\"\",\"\",\"\",\"\"\r\n" + junk + ",0\r\n");
    EXPECT_FALSE(doc.OpenLineFile(path));
    EXPECT_EQ(LastMessage(), "An error occurred while opening this file.\n\"zzz??" +
                                 std::string(55, 'z') + "...\" is not a number (line 2, field 1)");
}

TEST_F(SafeSaveTest, AFileThatFailsLateLeavesNoOptionsBehind) {
    StartLine(DataType::TotalAndResponded, "mg");
    const LineOptions before = doc.fileOptions().controls;
    const std::string path = folder.file("late.mrv");
    WriteBytes(path,
               "2,\"\",\"\",\"\",\"\",\"\"\r\n2,1,\"ppm\",\"\",2,\"Temp.\",\"RT\",\"x\",1,\"0.01\","
               "1,1\r\n3,4\r\n\"C\",\"0\",");
    EXPECT_FALSE(doc.OpenLineFile(path));
    EXPECT_EQ(LastMessage(),
              "An error occurred while opening this file.\nthe file ends before its last field "
              "(line 4, field 3)");
    EXPECT_EQ(doc.fileOptions().controls, before);
    EXPECT_EQ(shared.UnitWord, "");
    EXPECT_EQ(doc.Grid1().cols(), 3);
}

TEST_F(SafeSaveTest, AnOlderFileThatFailsLateLeavesNoOptionsBehind) {
    StartLine(DataType::RespondedAndNonResponded, "ppm");  // the file holds type 1 in mg
    const LineOptions before = doc.fileOptions().controls;
    EXPECT_FALSE(doc.OpenLineFile(FixturePath("older-missing-value.mrv")));
    EXPECT_EQ(LastMessage(), "An error occurred while opening this file.\n\"\" is not a number");
    EXPECT_EQ(doc.fileOptions().controls, before);
    EXPECT_EQ(doc.Grid1().cols(), 3);
}

}  // namespace
}  // namespace morvane::testing
