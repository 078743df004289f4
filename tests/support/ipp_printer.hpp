// A real printer that speaks IPP on a port of this machine: it keeps what it is told to print.
#pragma once

#include "support/temporary_folder.hpp"

#include <memory>
#include <string>

namespace tolvex::testing {

class IppPrinter
{
public:
    // With the format of documents that it takes. Throws when the programs for it are not there or do not
    // start.
    explicit IppPrinter(const std::string& format = "application/pdf");

    Text address() const;

    struct Job
    {
        std::string title, copies, document;
    };
    // Waits for the job of that number, counted from one.
    Job job(int number) const;
    bool has_no_job() const;

private:
    // A program that ends with its owner.
    class Program
    {
    public:
        explicit Program(const std::string& order);
        ~Program();
        Program(const Program&) = delete;
        Program& operator=(const Program&) = delete;

    private:
        pid_t process_ = 0;
    };

    const TemporaryFolder folder_;
    const int port_;
    std::unique_ptr<Program> bus_, printer_;
};

} // namespace tolvex::testing
