#pragma once

#include "tests/Support/TempFolder.h"

#include <string>

namespace Quillary {

struct Answer
{
    int status = 0;
    std::string output;
};

/// Runs the program as a shell would, with the folder as the user's home; standard error included. `environment` is
/// "NAME=value".
Answer quillary(const TempFolder& folder, const std::string& arguments, const std::string& environment = "");

} // namespace Quillary
