// A libFuzzer target for the parser chosen by -DRWZ_FUZZ_PARSER=<index into Parsers()>.
#include <cstdint>

#include "Parsers.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    rwz::fuzz::Parsers()[RWZ_FUZZ_PARSER].Run(
        std::string(reinterpret_cast<const char*>(data), size));
    return 0;
}
