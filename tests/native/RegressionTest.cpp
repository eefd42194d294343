// Every input that once broke a parser (tests/native/regressions/<parser>/),
// run again through the same entry point the fuzzer used.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>

#include "Parsers.h"

namespace rwz::fuzz {
namespace {

TEST(Regressions, EveryKeptInputRunsThrough) {
    namespace fs = std::filesystem;
    const fs::path root = fs::path(RWZ_ROOT) / "tests" / "native" / "regressions";
    size_t inputs = 0;
    for (const Parser& parser : Parsers()) {
        const fs::path folder = root / parser.Name;
        if (!fs::is_directory(folder)) continue;
        for (const fs::directory_entry& file : fs::directory_iterator(folder)) {
            std::ifstream in(file.path(), std::ios::binary);
            std::ostringstream bytes;
            bytes << in.rdbuf();
            parser.Run(bytes.str());
            ++inputs;
        }
    }
    RecordProperty("inputs", static_cast<int>(inputs));
}

}  // namespace
}  // namespace rwz::fuzz
