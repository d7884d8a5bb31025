#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size);

// Gives every file of the folders named as arguments to the fuzz target, which ends the program when a rule is broken.
int main(int argc, char **argv)
{
    int count = 0;
    for (int index = 1; index < argc; ++index) {
        for (const auto &entry : std::filesystem::directory_iterator(argv[index])) {
            std::printf("%s\n", entry.path().filename().c_str());
            (void)std::fflush(stdout); // The last line names the file that broke the rule.
            std::ifstream file(entry.path(), std::ios::binary);
            const std::string bytes{std::istreambuf_iterator<char>(file), {}};
            LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t *>(bytes.data()), bytes.size());
            ++count;
        }
    }
    if (count == 0) {
        (void)std::fputs("nothing to replay\n", stderr);
        return 1;
    }
    return 0;
}
