// SPDX-License-Identifier: MIT
// A tool that does what the file "fault" beside it says: it prints the file "status" or "list", or
// goes wrong in one of many ways. Without Qt and without a shell, so that it is quick.
#include <csignal>
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <sstream>
#include <string>
#include <unistd.h>

namespace {

std::string contentOf(const std::string& path) {
    std::ostringstream text;
    text << std::ifstream(path, std::ios::binary).rdbuf();
    return text.str();
}

void sleepForMilliseconds(unsigned duration) {
    usleep(duration * 1000);
}

// A process that holds the pipe after the tool has ended.
void leaveGrandchild() {
    if (fork() == 0) {
        sleepForMilliseconds(15);
        std::_Exit(0);
    }
}

[[noreturn]] void flood() {
    while (true)
        std::cout << "all work and no play\n";
}

[[noreturn]] void sleepThroughTermination() {
    std::signal(SIGTERM, SIG_IGN);
    sleepForMilliseconds(1000);
    std::_Exit(0);
}

} // namespace

int main(int, char** argv) {
    const std::string self = argv[0];
    const std::string directory = self.substr(0, self.rfind('/') + 1);
    const std::string fault = contentOf(directory + "fault");
    const bool wantsStatus = std::string(argv[2]) == "status";
    const std::string answer = contentOf(directory + (wantsStatus ? "status" : "list"));

    if (fault == "error")
        std::cerr << contentOf(directory + "message") << '\n';
    else if (fault == "fail")
        return 3;
    else if (fault == "half")
        std::cout << answer.substr(0, answer.size() / 2);
    else if (fault == "invalid")
        std::cout << "\xff\xfe" << answer;
    else if (fault == "nested")
        std::cout << std::string(5000, '[');
    else if (fault == "crash")
        std::raise(SIGKILL);
    else if (fault == "hang")
        pause();
    else if (fault == "stubborn")
        sleepThroughTermination();
    else if (fault == "flood")
        flood();
    else {
        if (fault == "slow")
            sleepForMilliseconds(8);
        if (fault == "grandchild")
            leaveGrandchild();
        std::cout << answer;
    }
    return 0;
}
