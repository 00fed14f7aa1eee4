// Runs a target with COUNT random inputs: PROGRAM COUNT [SEED]
// The same seed gives the same inputs on every machine.
#include <cstdint>
#include <cstdlib>
#include <iostream>
#include <random>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

int main(int count, char** arguments) {
    constexpr unsigned longest = 256;
    const auto numberAt = [&](int place) {
        return place < count ? std::strtoul(arguments[place], nullptr, 10) : 0;
    };
    const unsigned long runs = numberAt(1), seed = numberAt(2);
    for (unsigned long run = 0; run < runs; ++run) {
        std::mt19937_64 random(seed * 1'000'000'007 + run);
        std::vector<std::uint8_t> bytes(random() % longest);
        for (std::uint8_t& byte : bytes)
            byte = static_cast<std::uint8_t>(random());
        if (run % 1000 == 0)
            std::cout << run << std::endl; // before a finding ends the program
        LLVMFuzzerTestOneInput(bytes.data(), bytes.size());
    }
    std::cout << runs << " runs\n";
    return runs > 0 ? 0 : 1;
}
