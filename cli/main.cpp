// morvane-cli: the line analysis of Morvane from the command line.
#include <cstring>
#include <iostream>

namespace {

const char* const kUsage =
    "Usage: morvane-cli COMMAND [OPTIONS]\n"
    "\n"
    "Probit analysis of dose-response bioassays, from the command line.\n"
    "\n"
    "Options:\n"
    "  --help       print this usage and exit\n"
    "  --version    print the version and exit\n";

}  // namespace

int main(int argc, char** argv) {
    if (argc == 2 && std::strcmp(argv[1], "--help") == 0) {
        std::cout << kUsage;
        return 0;
    }
    if (argc == 2 && std::strcmp(argv[1], "--version") == 0) {
        std::cout << "morvane-cli 0.1.0\n";
        return 0;
    }
    std::cerr << kUsage;
    return 2;
}
