#pragma once
// A fault inside a routine that has no failure path of its own: a division by zero,
// an overflow, a table read outside its ends, a text read as a number that holds
// none. Such a fault stops the routine; the routine's caller tells the user in a
// plain message and leaves the document as it was, so Morvane never ends on one.

#include <stdexcept>
#include <string>

namespace morvane {

class Fault : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

}  // namespace morvane
