// A process that works for long: certificates, PDF files, forms and documents by the thousand, and what of
// memory and of the system it holds after each tenth. Both have to stay where they were once everything had
// been used. Natively it is a host in C++; on Windows one of the automation component, with windows on the
// screen and the openssl program for every seal.
//
//   soak FOLDER [PERCENT]    in the FOLDER of a demonstration; PERCENT of the full counts
#include "trials/held.hpp"
#include "trials/shop.hpp"

#include <cstdint>
#include <cstdlib>
#include <exception>
#include <fmt/core.h>
#include <functional>
#include <string>

namespace {

using namespace tolvex::trials;

void print_row(const std::string& what, const std::string& done, const std::string& mebibytes)
{
    fmt::print("{:<14} {:>8} {:>9}", what, done, mebibytes);
}

void print_heading(const std::string& what)
{
    print_row(what, "done", "MiB");
    for (const auto& [name, count] : held().counts) fmt::print(" {:>12}", name);
    fmt::print("\n");
}

void print_held(int done, const Held& now)
{
    print_row("", std::to_string(done), fmt::format("{:.2f}", now.mebibytes));
    for (const auto& [name, count] : now.counts) fmt::print(" {:>12}", count);
    fmt::print("\n");
    std::fflush(stdout);
}

// Whether nothing was added but what an allocator keeps for itself, and the rest of the 2 MiB of pages that
// the embedded database keeps while it grows: 1.4 MiB at most.
bool judge(const std::string& what, const Held& settled, const Held& last)
{
    constexpr double most_growth = 1.5;
    const double grown = last.mebibytes - settled.mebibytes;
    bool flat = grown <= most_growth;
    std::string growth = fmt::format("{:+.2f} MiB", grown);
    for (std::size_t i = 0; i < last.counts.size(); ++i) {
        const long more = last.counts[i].second - settled.counts[i].second;
        growth += fmt::format(", {:+} {}", more, last.counts[i].first);
        flat = flat && more <= 0;
    }
    fmt::print("{:<14} {}: {}\n\n", what, flat ? "flat" : "GROWS", growth);
    return flat;
}

// What is kept once (a prepared statement, a font) is there after three tenths.
bool stays_flat(const std::string& what, int count, const std::function<void(int)>& operation)
{
    Held settled, now;
    print_heading(what);
    for (int tenth = 1, done = 0; tenth <= 10; ++tenth) {
        for (const int until = static_cast<int>(std::int64_t{count} * tenth / 10); done < until; ++done)
            operation(done);
        now = held();
        print_held(done, now);
        if (tenth == 3) settled = now;
    }
    return judge(what, settled, now);
}

} // namespace

int main(int argc, char** argv)
try {
    const int percent = argc > 2 ? std::atoi(argv[2]) : 100;
    const auto shop = open_shop(argc > 1 ? argv[1] : ".");
    bool flat = stays_flat("certificates", 100 * percent, [&](int) { shop->load_certificate(); });
    flat &= stays_flat("PDF files", 10 * percent, [&](int) { shop->export_pdf(); });
    flat &= stays_flat("forms", 10 * percent, [&](int) { shop->open_forms(); });
    flat &=
        stays_flat("documents", shop->documents() / 100 * percent, [&](int number) { shop->issue(number); });
    return flat ? 0 : 1;
} catch (const std::exception& error) {
    fmt::print(stderr, "{}\n", error.what());
    return 2;
}
