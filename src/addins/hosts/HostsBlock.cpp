#include "HostsBlock.h"

namespace rwzhosts {
namespace {

std::string Trim(const std::string& text) {
    const char* blanks = " \t\r\n";
    const size_t first = text.find_first_not_of(blanks);
    if (first == std::string::npos) return std::string();
    return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

std::vector<std::string> Lines(const std::string& text) {
    std::vector<std::string> lines;
    size_t start = 0;
    while (start < text.size()) {
        size_t end = text.find('\n', start);
        if (end == std::string::npos) end = text.size();
        std::string line = text.substr(start, end - start);
        if (!line.empty() && line.back() == '\r') line.pop_back();
        lines.push_back(line);
        start = end + 1;
    }
    return lines;
}

}  // namespace

std::vector<std::string> ReadBlock(const std::string& astrFile) {
    std::vector<std::string> entries;
    bool inside = false;
    for (const std::string& line : Lines(astrFile)) {
        const std::string text = Trim(line);
        if (text == kBeginMarker) {
            inside = true;
        } else if (text == kEndMarker) {
            if (inside) return entries;
        } else if (inside && !text.empty()) {
            entries.push_back(text);
        }
    }
    // A begin marker without its end: the block is broken, so nothing is ours.
    return {};
}

std::string ReplaceBlock(const std::string& astrFile, const std::vector<std::string>& avarEntries) {
    std::string out;
    bool inside = false;
    bool written = false;
    auto writeBlock = [&] {
        if (written || avarEntries.empty()) return;
        out += std::string(kBeginMarker) + "\r\n";
        for (const std::string& entry : avarEntries) out += entry + "\r\n";
        out += std::string(kEndMarker) + "\r\n";
        written = true;
    };
    const bool hasEnd = astrFile.find(kEndMarker) != std::string::npos;
    for (const std::string& line : Lines(astrFile)) {
        const std::string text = Trim(line);
        if (text == kBeginMarker && hasEnd) {
            inside = true;
            writeBlock();
        } else if (inside) {
            if (text == kEndMarker) inside = false;
        } else if (text != kEndMarker) {
            out += line + "\r\n";
        }
    }
    writeBlock();
    return out;
}

std::vector<std::string> SplitEntries(const std::string& astrText) {
    std::vector<std::string> entries;
    for (const std::string& line : Lines(astrText)) {
        const std::string text = Trim(line);
        if (!text.empty()) entries.push_back(text);
    }
    return entries;
}

std::string JoinEntries(const std::vector<std::string>& avarEntries) {
    std::string text;
    for (const std::string& entry : avarEntries) text += entry + "\r\n";
    return text;
}

}  // namespace rwzhosts
