#include "flat_file/inbox.hpp"

#include "platform/clock.hpp"
#include "support/files.hpp"
#include "support/temporary_folder.hpp"
#include "support/text_io.hpp"
#include "tolvex/errors.hpp"

#include <gtest/gtest.h>

namespace tolvex::testing {
namespace {

class InboxTest : public ::testing::Test
{
protected:
    InboxTest() { std::filesystem::create_directory(path() / "en_proceso"); }

    Text folder() const { return path().u16string(); }
    const std::filesystem::path& path() const { return folder_.path(); }

    std::optional<Inbox::File> take_within_two_seconds(Inbox& inbox)
    {
        for (const std::int64_t end = milliseconds_running() + 2000; milliseconds_running() < end; pause(50))
            if (auto file = inbox.take()) return file;
        return {};
    }

private:
    TemporaryFolder folder_;
};

TEST_F(InboxTest, takes_a_file_when_nobody_writes_to_it_any_more_and_says_what_became_of_it)
{
    Inbox inbox(folder());
    EXPECT_THROW(Inbox{folder()}, Error); // of another station
    for (const char* other : {"nota.md", "vacío.txt"}) write_file(path() / other, "");
    write_file(path() / "ventas.TXT", "EMISOR");
    EXPECT_FALSE(inbox.take());
    pause(600);
    write_file(path() / "ventas.TXT", "EMISOR|1|1\n");
    EXPECT_FALSE(inbox.take());
    pause(600);
    EXPECT_FALSE(inbox.take()); // it has just grown
    const auto file = take_within_two_seconds(inbox);
    ASSERT_TRUE(file);
    EXPECT_EQ(read_file(path() / "en_proceso/ventas.TXT"), "EMISOR|1|1\n");
    write_file(path() / "rechazados/ventas.TXT", "de ayer");
    inbox.begin(*file, 4);
    inbox.settle(*file, false, u"no es así");
    EXPECT_EQ(read_file(path() / "rechazados/ventas.TXT"), "de ayer");
    EXPECT_EQ(read_file(path() / "rechazados/ventas-2.TXT"), "EMISOR|1|1\n");
    EXPECT_EQ(read_file(path() / "rechazados/ventas-2.reporte.txt"), "no es así");
    EXPECT_FALSE(take_within_two_seconds(inbox));
}

TEST_F(InboxTest, goes_on_where_an_earlier_run_ended_and_tells_what_is_in_doubt)
{
    write_file(path() / "en_proceso/ventas.txt", "EMISOR|1|1\n");
    IssuedDocument document{};
    document.series = u"A";
    document.folio = u"7";
    const auto state = [&] {
        const auto file = Inbox(folder()).take();
        return file ? std::pair(file->next_line, file->in_doubt) : std::pair(std::size_t{0}, std::size_t{0});
    };
    EXPECT_EQ(state(), std::pair(std::size_t{1}, std::size_t{0}));
    const Inbox::File file = *Inbox(folder()).take();
    Inbox(folder()).begin(file, 4);
    EXPECT_EQ(state(), std::pair(std::size_t{1}, std::size_t{4}));
    Inbox(folder()).issued(file, 4, document);
    EXPECT_EQ(state(), std::pair(std::size_t{5}, std::size_t{0}));
    Inbox(folder()).begin(file, 8);
    EXPECT_EQ(state(), std::pair(std::size_t{5}, std::size_t{8}));
    Inbox(folder()).settle(file, true, u"A7");
    EXPECT_EQ(state(), std::pair(std::size_t{0}, std::size_t{0}));
}

} // namespace
} // namespace tolvex::testing
