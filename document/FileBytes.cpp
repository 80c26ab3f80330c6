#include "document/FileBytes.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <random>
#include <system_error>
#include <vector>

#include "core/NumberText.h"

namespace morvane {
namespace {

FileError SystemError(int error) {
    return FileError(std::generic_category().message(error), error == ENOENT);
}

FileError Refusal(const std::string& text) {
    return FileError(text, false);
}

// Closes a descriptor when it goes out of scope.
struct Descriptor {
    int fd = -1;
    Descriptor() = default;
    explicit Descriptor(int d) : fd(d) {}
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    ~Descriptor() {
        if (fd >= 0)
            ::close(fd);
    }
};

std::string FolderOf(const std::string& path) {
    const std::size_t slash = path.find_last_of('/');
    if (slash == std::string::npos)
        return ".";
    if (slash == 0)
        return "/";
    return path.substr(0, slash);
}

// What a path that is no plain file names, for the message.
std::string KindOf(mode_t mode) {
    if (S_ISFIFO(mode))
        return "a pipe";
    if (S_ISSOCK(mode))
        return "a socket";
    if (S_ISCHR(mode) || S_ISBLK(mode))
        return "a device";
    return "no plain file";
}

FileError NotAFile(const std::string& path, mode_t mode) {
    return Refusal("\"" + ShortFileName(path) + "\" is " + KindOf(mode) +
                   ", not a file. Only plain files can be opened or saved.");
}

// The file a path finally names: symbolic links are followed one by one, so that a
// link whose target does not exist yet still gives the path to create.
std::string FollowLinks(std::string path) {
    for (int hops = 0; hops < 40; ++hops) {
        struct stat info {};
        if (::lstat(path.c_str(), &info) != 0 || !S_ISLNK(info.st_mode))
            return path;
        std::vector<char> target(static_cast<std::size_t>(info.st_size > 0 ? info.st_size : 255) +
                                 1);
        const ssize_t n = ::readlink(path.c_str(), target.data(), target.size());
        if (n < 0)
            throw SystemError(errno);
        std::string next(target.data(), static_cast<std::size_t>(n));
        if (next.empty())
            throw SystemError(ENOENT);
        path = next.front() == '/' ? next : FolderOf(path) + "/" + next;
    }
    throw SystemError(ELOOP);
}

// Creates a new file with a short random name in the folder, with the mode asked for
// (the umask applies, as to any new file). The name is short so that it fits where
// the target's own name only just fits.
std::string CreateTemporaryFile(const std::string& folder, mode_t mode, Descriptor& file) {
    static const char kLetters[] = "abcdefghijklmnopqrstuvwxyz0123456789";
    std::mt19937_64 random(
        static_cast<std::uint64_t>(std::chrono::steady_clock::now().time_since_epoch().count()) ^
        (static_cast<std::uint64_t>(::getpid()) << 32) ^ std::random_device{}());
    for (int attempt = 0; attempt < 100; ++attempt) {
        std::string name = folder + "/.mrv";
        for (int i = 0; i < 6; ++i)
            name += kLetters[random() % (sizeof kLetters - 1)];
        file.fd = ::open(name.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, mode);
        if (file.fd >= 0)
            return name;
        if (errno != EEXIST)
            throw SystemError(errno);
    }
    throw SystemError(EEXIST);
}

void WriteAll(int fd, std::string_view bytes) {
    std::size_t written = 0;
    while (written < bytes.size()) {
        const ssize_t n = ::write(fd, bytes.data() + written, bytes.size() - written);
        if (n < 0) {
            if (errno == EINTR)
                continue;
            throw SystemError(errno);
        }
        if (n == 0)
            throw SystemError(EIO);
        written += static_cast<std::size_t>(n);
    }
}

// Flushes a folder's entries, so that a rename in it is on the disk. File systems
// that cannot flush a folder say so, and are left at that.
void SyncFolder(const std::string& folder) {
    Descriptor dir(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (dir.fd < 0)
        return;
    if (::fsync(dir.fd) != 0 && errno != EINVAL && errno != EROFS)
        throw SystemError(errno);
}

}  // namespace

std::string ShortFileName(const std::string& path) {
    const std::size_t slash = path.find_last_of('/');
    return slash == std::string::npos ? path : path.substr(slash + 1);
}

std::string ReadFileBytes(const std::string& path, std::size_t maxBytes) {
    // Not blocking: a pipe with no writer would otherwise hold the opening forever.
    Descriptor file(::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC | O_NOCTTY));
    if (file.fd < 0) {
        const int error = errno;
        struct stat info {};
        if (error == ENXIO && ::stat(path.c_str(), &info) == 0)
            throw NotAFile(path, info.st_mode);
        throw SystemError(error);
    }
    struct stat info {};
    if (::fstat(file.fd, &info) != 0)
        throw SystemError(errno);
    if (S_ISDIR(info.st_mode))
        throw SystemError(EISDIR);
    if (!S_ISREG(info.st_mode))
        throw NotAFile(path, info.st_mode);
    auto tooLarge = [&](long long size) {
        return Refusal("The file is too large: " + PlainText(static_cast<double>(size)) +
                       " bytes, and no line file is larger than " +
                       PlainText(static_cast<double>(maxBytes)) + " bytes.");
    };
    if (static_cast<unsigned long long>(info.st_size) > maxBytes)
        throw tooLarge(static_cast<long long>(info.st_size));
    std::string bytes;
    bytes.reserve(static_cast<std::size_t>(info.st_size));
    char buffer[65536];
    for (;;) {
        const ssize_t n = ::read(file.fd, buffer, sizeof buffer);
        if (n < 0) {
            if (errno == EINTR)
                continue;
            throw SystemError(errno);
        }
        if (n == 0)
            break;
        if (bytes.size() + static_cast<std::size_t>(n) > maxBytes)  // it grew while read
            throw tooLarge(static_cast<long long>(bytes.size()) + n);
        bytes.append(buffer, static_cast<std::size_t>(n));
    }
    return bytes;
}

void ReplaceFileContents(const std::string& path, std::string_view bytes) {
    if (path.empty())
        throw SystemError(ENOENT);
    const std::string target = FollowLinks(path);
    const std::string folder = FolderOf(target);
    const std::string name = "\"" + ShortFileName(target) + "\"";

    struct stat old {};
    const bool exists = ::stat(target.c_str(), &old) == 0;
    if (!exists && errno != ENOENT)
        throw SystemError(errno);
    if (exists) {
        if (S_ISDIR(old.st_mode))
            throw SystemError(EISDIR);
        if (!S_ISREG(old.st_mode))
            throw NotAFile(target, old.st_mode);
        // The mode bits, not only access(): a file nobody may write is refused also
        // to a user whom no permission stops.
        if ((old.st_mode & 0222) == 0 || ::access(target.c_str(), W_OK) != 0)
            throw Refusal("The file " + name +
                          " is read-only. Save it under another name, or make it writable "
                          "first.");
        if (old.st_nlink > 1)
            throw Refusal("The file " + name + " has " +
                          PlainText(static_cast<double>(old.st_nlink)) +
                          " names (hard links), and saving would part it from the others. Save "
                          "it under another name.");
    }

    // A new file gets what the umask gives any new file; a replaced one its old mode.
    Descriptor temp;
    const std::string tempPath = CreateTemporaryFile(folder, exists ? 0600 : 0666, temp);
    try {
        if (exists) {
            // Owner and group first: a change of owner clears the set-id bits.
            if (::fchown(temp.fd, old.st_uid, old.st_gid) != 0)
                (void)::fchown(temp.fd, static_cast<uid_t>(-1), old.st_gid);
            if (::fchmod(temp.fd, old.st_mode & 07777) != 0)
                throw SystemError(errno);
        }
        WriteAll(temp.fd, bytes);
        if (::fsync(temp.fd) != 0)
            throw SystemError(errno);
        const int fd = temp.fd;
        temp.fd = -1;
        if (::close(fd) != 0)
            throw SystemError(errno);
        if (::rename(tempPath.c_str(), target.c_str()) != 0)
            throw SystemError(errno);
    } catch (...) {
        if (temp.fd >= 0) {
            ::close(temp.fd);
            temp.fd = -1;
        }
        ::unlink(tempPath.c_str());
        throw;
    }
    SyncFolder(folder);
}

}  // namespace morvane
