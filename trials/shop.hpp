// A shop at work, as its host has it: through the classes natively, through the automation component on
// Windows.
#pragma once

#include <memory>
#include <string>

namespace tolvex::trials {

class Shop
{
public:
    virtual ~Shop() = default;

    // How many documents a whole soak issues.
    virtual int documents() const = 0;

    // Each throws an exception that says why when it could not be done.
    virtual void load_certificate() = 0;
    virtual void export_pdf() = 0;
    // The list, and the form of a new record, which its user closes at once.
    virtual void open_forms() = 0;
    virtual void issue(int number) = 0;
};

// In the folder of a demonstration, with its layout factura.rdl.
std::unique_ptr<Shop> open_shop(const std::string& folder);

} // namespace tolvex::trials
