// The component as a late-bound host reaches it: by its programmatic identifiers and the names of its
// methods.
#pragma once

#include "developer_console/calls.hpp"
#include "platform/windows/windows.hpp"

#include <map>

namespace tolvex::developer_console {

// Objects are made when they are first called and kept.
class LateBoundComponent : public Component
{
public:
    Outcome call(const Call& call) override;

private:
    IDispatch& object_of(TextView class_name);

    std::map<TextView, ComPtr<IDispatch>> objects_;
};

} // namespace tolvex::developer_console
