#include "support/backends.hpp"

#include "support/temporary_folder.hpp"

namespace tolvex {

namespace {

Backend embedded_backend()
{
    static const TemporaryFolder folder;
    return {"embedded", u"server=sqlite:;database=" + folder.file("contrato.db"), true};
}

} // namespace

const std::vector<Backend>& backends()
{
    static const std::vector<Backend> all = {embedded_backend()};
    return all;
}

} // namespace tolvex
