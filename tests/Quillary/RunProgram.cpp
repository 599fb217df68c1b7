#include "tests/Quillary/RunProgram.h"

#include <array>
#include <cstdio>
#include <sys/wait.h>

namespace Quillary {

Answer quillary(const TempFolder& folder, const std::string& arguments, const std::string& environment)
{
    const std::string command = "cd '" + folder.path().string() +
                                "' && HOME=\"$PWD\" XDG_DATA_HOME= XDG_CONFIG_HOME= XDG_STATE_HOME= "
                                "LC_ALL=de_DE.UTF-8 " +
                                environment + " '" + QUILLARY_PROGRAM + "' " + arguments + " 2>&1";
    Answer answer;
    FILE* pipe = popen(command.c_str(), "r"); // NOLINT(cert-env33-c): a shell is what is being imitated
    if (pipe == nullptr) {
        return {.status = -1, .output = "no shell"};
    }
    std::array<char, 4096> buffer{};
    for (std::size_t count = fread(buffer.data(), 1, buffer.size(), pipe); count > 0;
         count = fread(buffer.data(), 1, buffer.size(), pipe)) {
        answer.output.append(buffer.data(), count);
    }
    answer.status = WEXITSTATUS(pclose(pipe));
    return answer;
}

} // namespace Quillary
