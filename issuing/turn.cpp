#include "issuing/turn.hpp"

#include "core/numbers.hpp"
#include "platform/clock.hpp"

#include <algorithm>

namespace tolvex {

namespace {

constexpr int among_many = 5, at_the_head = 1; // milliseconds between two tries
constexpr std::int32_t nobody_gave_way = -1;   // what sp_getapplock says when the time is over

// What may fail without being the business: then there is no turn, and nothing to tell.
template <class Operation>
void where_it_works(Operation operation)
{
    try {
        operation();
    } catch (const std::exception&) {
        return;
    }
}

} // namespace

Turn::Turn(Connection& connection, const Text& folder, int wait)
    : connection_(connection), latest_(milliseconds_running() + wait)
{
    where_it_works([&] {
        const Text file = connection_.file();
        if (file.empty())
            wait_at_server();
        else
            at_database_ = wait_at_file(file + u"-turno");
    });
    where_it_works([&] { at_folder_ = wait_at_file(folder + u"\\turno.tmp"); });
}

Turn::~Turn()
{
    at_folder_.reset();
    at_database_.reset();
    if (at_server_)
        where_it_works([&] { connection_.execute(u"Exec sp_releaseapplock 'TOLVEX', 'Session'"); });
}

std::int64_t Turn::time_left() const { return std::max<std::int64_t>(latest_ - milliseconds_running(), 0); }

// The lock belongs to the connection, and ends with it.
void Turn::wait_at_server()
{
    const Recordset answer = connection_.query(
        u"Declare @turno int Exec @turno = sp_getapplock 'TOLVEX', 'Exclusive', 'Session', " +
        decimal(time_left()) + u" Select @turno as turno");
    const std::int32_t turn = answer[u"turno"].int32();
    at_server_ = turn >= 0;
    waited_in_vain_ = waited_in_vain_ || turn == nobody_gave_way;
}

// Who is next waits alone: a station that comes back at once, with the next line of a long file, would be
// faster every time.
std::unique_ptr<FileTurn> Turn::wait_at_file(const Text& path)
{
    const auto next = wait_for(path + u"-sigue", among_many);
    return next ? wait_for(path, at_the_head) : nullptr;
}

std::unique_ptr<FileTurn> Turn::wait_for(const Text& path, int between_tries)
{
    for (;;) {
        if (auto turn = FileTurn::take(path)) return turn;
        if (time_left() == 0) break;
        pause(between_tries);
    }
    waited_in_vain_ = true;
    return nullptr;
}

} // namespace tolvex
