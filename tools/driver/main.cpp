#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <string>
#include <string_view>
#include <sys/stat.h>
#include <unistd.h>

#include "driver/line_reader.h"
#include "driver/program.h"
#include "driver/requests.h"

namespace {

using morvane::driver::LineReader;
using morvane::driver::Program;

// Words from outside may hold a line break.
int refuse(std::string line) {
    std::replace_if(line.begin(), line.end(), [](char c) { return c >= 0 && c < ' '; }, ' ');
    std::fprintf(stderr, "morvane-driver: %s\n", line.c_str());
    return 2;
}

bool writeLine(std::string text) {
    text += '\n';
    std::string_view rest = text;
    while (!rest.empty()) {
        const ssize_t count = ::write(STDOUT_FILENO, rest.data(), rest.size());
        if (count < 0 && errno != EINTR) return false;
        if (count > 0) rest.remove_prefix(static_cast<std::size_t>(count));
    }
    return true;
}

bool isBlank(const std::string& line) {
    return line.find_first_not_of(" \t\r") == std::string::npos;
}

// Answers request after request until there are no more, or nobody reads the answers.
void serve(Program& program) {
    LineReader reader(STDIN_FILENO, program.loop());
    while (const std::optional<LineReader::Line> line = reader.next()) {
        if (!line->isTooLong && isBlank(line->text)) continue;
        const std::string answer = line->isTooLong
                                       ? morvane::driver::errorAnswer("the line is too long")
                                       : morvane::driver::answerTo(line->text, program);
        program.flush();
        if (!writeLine(answer)) break;
    }
}

}  // namespace

int main(int count, char** words) {
    std::signal(SIGPIPE, SIG_IGN);
    if (count != 3 || std::string_view(words[1]) != "--disk") {
        return refuse(count > 1 && std::string_view(words[1]) != "--disk"
                          ? "unknown option \"" + std::string(words[1]) +
                                "\" (usage: morvane-driver --disk DISK)"
                          : std::string("usage: morvane-driver --disk DISK"));
    }
    auto opened = Program::open(words[2]);
    if (const auto* error = std::get_if<std::string>(&opened)) return refuse(*error);
    Program& program = *std::get<std::unique_ptr<Program>>(opened);
    serve(program);
    program.finish();
    return 0;
}
