// Runs a target once with each file of the folders named.
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

int main(int count, char** arguments) {
    int files = 0;
    for (int number = 1; number < count; ++number)
        for (const auto& entry : std::filesystem::directory_iterator(arguments[number])) {
            std::cout << entry.path().filename() << std::endl; // before a finding ends the program
            std::ifstream file(entry.path(), std::ios::binary);
            const std::string bytes{std::istreambuf_iterator<char>(file), {}};
            LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
            ++files;
        }
    return files > 0 ? 0 : 1;
}
