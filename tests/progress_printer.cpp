// Prints the pieces its arguments describe, each written and flushed on its
// own so that a reader receives them as separate chunks:
//   out:TEXT    write TEXT; "\r", "\n", "\0" and "\\" stand for those bytes
//   sleep:MS    pause for MS milliseconds
//   exit:CODE   end with CODE (the default is 0)
//   flood:N     write N bytes of letters and no line end, as fast as it can
//   garbage:N   write N bytes of zero bytes and broken UTF-8
//   close       close standard output and standard error, and go on
#include <chrono>
#include <cstdio>
#include <unistd.h>
#include <cstdlib>
#include <string>
#include <thread>

namespace {

std::string unescape(const std::string &text)
{
    std::string out;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] != '\\' || i + 1 == text.size()) {
            out += text[i];
            continue;
        }
        const char next = text[++i];
        switch (next) {
        case 'r': out += '\r'; break;
        case 'n': out += '\n'; break;
        case '0': out += '\0'; break;
        default: out += next; break;
        }
    }
    return out;
}

// Writes `total` bytes of `pattern`, over and over, in large writes.
void writeRepeated(const std::string &pattern, long long total)
{
    std::string block;
    while (block.size() < 65536)
        block += pattern;
    for (long long left = total; left > 0;) {
        const std::size_t n = left < (long long)block.size() ? std::size_t(left) : block.size();
        std::fwrite(block.data(), 1, n, stdout);
        left -= (long long)n;
    }
    std::fflush(stdout);
}

bool startsWith(const std::string &text, const char *prefix, std::string *rest)
{
    const std::string p(prefix);
    if (text.compare(0, p.size(), p) != 0)
        return false;
    *rest = text.substr(p.size());
    return true;
}

} // namespace

int main(int argc, char **argv)
{
    int code = 0;
    for (int i = 1; i < argc; ++i) {
        const std::string arg(argv[i]);
        std::string rest;
        if (startsWith(arg, "out:", &rest)) {
            const std::string bytes = unescape(rest);
            std::fwrite(bytes.data(), 1, bytes.size(), stdout);
            std::fflush(stdout);
        } else if (startsWith(arg, "sleep:", &rest)) {
            std::this_thread::sleep_for(std::chrono::milliseconds(std::atoi(rest.c_str())));
        } else if (startsWith(arg, "flood:", &rest)) {
            writeRepeated("abcdefghijklmnopqrstuvwxyz", std::atoll(rest.c_str()));
        } else if (startsWith(arg, "garbage:", &rest)) {
            writeRepeated(std::string("\0\xC3(\xE2\x82\xFF\x80\0x", 10), std::atoll(rest.c_str()));
        } else if (arg == "close") {
            std::fflush(stdout);
            ::close(1);
            ::close(2);
        } else if (startsWith(arg, "exit:", &rest)) {
            code = std::atoi(rest.c_str());
        } else {
            std::fprintf(stderr, "progress_printer: unknown piece %s\n", arg.c_str());
            return 2;
        }
    }
    return code;
}
