// DialogWatcher.exe: the bench's dialog watcher on its own, for scripts
// (scripts/demo.sh, scripts/bench.sh). It answers every dialog box in the
// prefix with its default button until the stop file appears or the time
// limit passes, then writes one line per dialog to the output file.
//   DialogWatcher.exe --out FILE --stop-file FILE [--timeout SECONDS]
#include <cstdio>
#include <map>

#include "bench/Bench.h"

int main(int argc, char** argv) {
    std::map<std::string, std::string> options = {{"--timeout", "120"}};
    for (int i = 1; i + 1 < argc; i += 2) options[argv[i]] = argv[i + 1];
    const DWORD timeoutMs = static_cast<DWORD>(atof(options["--timeout"].c_str()) * 1000);
    bench::DialogWatch watch({}, timeoutMs);
    for (const DWORD start = GetTickCount(); GetTickCount() - start < timeoutMs; Sleep(100))
        if (GetFileAttributesA(options["--stop-file"].c_str()) != INVALID_FILE_ATTRIBUTES) break;
    FILE* out = fopen(options["--out"].c_str(), "wb");
    if (!out) return 2;
    // dialog PID EXE TITLE TEXT ANSWER-ID ANSWER-TEXT, tab-separated, each escaped.
    auto escaped = [](const std::string& text) {
        std::string out;
        for (char c : text)
            out += c == '\t'   ? "\\t"
                   : c == '\n' ? "\\n"
                   : c == '\r' ? "\\r"
                   : c == '\\' ? "\\\\"
                               : std::string(1, c);
        return out;
    };
    for (const bench::DialogRecord& d : watch.Stop().dialogs)
        fprintf(out, "dialog\t%lu\t%s\t%s\t%s\t%d\t%s\n", d.pid, escaped(d.exe).c_str(),
                escaped(d.title).c_str(), escaped(d.text).c_str(), d.answerId,
                escaped(d.answerText).c_str());
    fclose(out);
    return 0;
}
