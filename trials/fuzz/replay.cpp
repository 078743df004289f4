// The main program of a target where libFuzzer is not: every seed goes through it and then, when asked for,
// changes of seeds made by chance, the same ones for the same number. Whatever ends it, the input that did is
// left beside it as PROGRAM.finding.
//
//   PROGRAM [--runs N | --seconds N] [--seed N] FILE_OR_FOLDER…
#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size);

#ifdef __SANITIZE_ADDRESS__
// Sanitizers tell of the other signals by themselves, and end the process by this one.
constexpr int fatal_signals[] = {SIGABRT};
extern "C" __attribute__((visibility("default"))) const char* __asan_default_options()
{
    return "abort_on_error=1";
}
extern "C" __attribute__((visibility("default"))) const char* __ubsan_default_options()
{
    return "abort_on_error=1";
}
#else
constexpr int fatal_signals[] = {SIGABRT, SIGSEGV, SIGFPE, SIGILL};
#endif

namespace {

using Clock = std::chrono::steady_clock;
using Input = std::string;

struct Wish
{
    std::uint64_t runs = 0, seed = 1;
    std::chrono::seconds time{0};
    std::vector<std::filesystem::path> places;
};

Wish wish_of(const std::vector<std::string>& arguments)
{
    Wish wish;
    for (auto argument = arguments.begin(); argument != arguments.end(); ++argument) {
        const bool has_value = argument->starts_with("--") && argument + 1 != arguments.end();
        const auto value = [&] { return std::strtoull((++argument)->c_str(), nullptr, 10); };
        if (has_value && *argument == "--runs")
            wish.runs = value();
        else if (has_value && *argument == "--seconds")
            wish.time = std::chrono::seconds(value());
        else if (has_value && *argument == "--seed")
            wish.seed = value();
        else
            wish.places.emplace_back(*argument);
    }
    return wish;
}

// --- the input under way ---

Input under_way;
std::string finding;

extern "C" void leave_finding(int)
{
    if (std::FILE* const file = std::fopen(finding.c_str(), "wb")) {
        std::fwrite(under_way.data(), 1, under_way.size(), file);
        std::fclose(file);
        std::fprintf(stderr, "finding: %s\n", finding.c_str());
    }
    std::_Exit(1);
}

// An exception that gets out of a target ends it too.
void run(Input input) noexcept
{
    under_way = std::move(input);
    LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(under_way.data()), under_way.size());
}

// --- the inputs ---

Input read(const std::filesystem::path& path)
{
    std::ifstream file(path, std::ios::binary);
    if (!file) throw std::runtime_error("cannot read " + path.string());
    return {std::istreambuf_iterator<char>(file), {}};
}

// In an order that does not depend on the file system.
std::vector<Input> read_seeds(const std::vector<std::filesystem::path>& places)
{
    std::vector<std::filesystem::path> files;
    for (const auto& place : places)
        if (std::filesystem::is_directory(place))
            std::copy(std::filesystem::directory_iterator(place), {}, std::back_inserter(files));
        else
            files.push_back(place);
    std::sort(files.begin(), files.end());
    std::vector<Input> seeds;
    std::transform(files.begin(), files.end(), std::back_inserter(seeds), read);
    if (seeds.empty()) throw std::runtime_error("there are no seeds");
    return seeds;
}

// Distributions of the library differ from one to another; remainders do not.
class Mutations
{
public:
    Mutations(const std::vector<Input>& seeds, std::uint64_t seed) : seeds_(seeds), random_(seed) {}

    Input next()
    {
        Input input = any_seed();
        for (std::size_t changes = 1 + below(8); changes > 0; --changes) change(input);
        input.resize(std::min(input.size(), longest));
        return input;
    }

private:
    static constexpr std::size_t longest = 4'096;

    std::size_t below(std::size_t limit) { return limit == 0 ? 0 : random_() % limit; }
    char any_byte() { return static_cast<char>(below(256)); }
    const Input& any_seed() { return seeds_[below(seeds_.size())]; }

    void change(Input& input)
    {
        const std::size_t place = below(input.size());
        switch (input.empty() ? 3 : below(5)) {
        case 0:
            input[place] = static_cast<char>(input[place] ^ 1 << below(8));
            break;
        case 1:
            input[place] = any_byte();
            break;
        case 2:
            input.erase(place, 1 + below(8));
            break;
        case 3:
            input.insert(place, 1 + below(4), any_byte());
            break;
        default:
            splice(input, place);
        }
    }

    void splice(Input& input, std::size_t place)
    {
        const Input& other = any_seed();
        input.replace(place, below(input.size()), other, below(other.size() + 1), 1 + below(other.size()));
    }

    const std::vector<Input>& seeds_;
    std::mt19937_64 random_;
};

// How many.
std::uint64_t run_mutations(const std::vector<Input>& seeds, const Wish& wish)
{
    Mutations mutations(seeds, wish.seed);
    const auto end = Clock::now() + wish.time;
    std::uint64_t count = 0;
    for (; count < wish.runs || Clock::now() < end; ++count) run(mutations.next());
    return count;
}

} // namespace

int main(int count, char** arguments)
try {
    const Wish wish = wish_of({arguments + 1, arguments + count});
    finding = std::string(arguments[0]) + ".finding";
    for (const int signal : fatal_signals) std::signal(signal, leave_finding);
    const std::vector<Input> seeds = read_seeds(wish.places);
    const auto start = Clock::now();
    for (const Input& seed : seeds) run(seed);
    const std::uint64_t runs = seeds.size() + run_mutations(seeds, wish);
    const double seconds = std::chrono::duration<double>(Clock::now() - start).count();
    std::printf("%llu runs, %.0f a second\n", static_cast<unsigned long long>(runs),
                static_cast<double>(runs) / std::max(seconds, 0.001));
    return 0;
} catch (const std::exception& error) {
    std::fprintf(stderr, "%s\n", error.what());
    return 2;
}
