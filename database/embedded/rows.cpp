#include "database/embedded/rows.hpp"

namespace tolvex::embedded {

namespace {

class StatementRows : public Cursor
{
public:
    // The first row is fetched at once: it tells the kinds of columns that are expressions.
    explicit StatementRows(Statement statement) : statement_(std::move(statement)), at_row_(statement_.step())
    {
        for (std::size_t i = 0; i < statement_.column_count(); ++i) columns_.push_back(statement_.column(i));
    }

    const std::vector<Column>& columns() const override { return columns_; }

    bool next() override
    {
        if (started_ && at_row_) at_row_ = statement_.step();
        started_ = true;
        return at_row_;
    }

    Value value(std::size_t column) override { return statement_.value(column, columns_.at(column).kind); }

private:
    Statement statement_;
    bool at_row_, started_ = false;
    std::vector<Column> columns_;
};

class NoRows : public Cursor
{
public:
    const std::vector<Column>& columns() const override { return columns_; }
    bool next() override { return false; }
    Value value(std::size_t) override { return {}; }

private:
    std::vector<Column> columns_;
};

} // namespace

std::unique_ptr<Cursor> rows_of(Statement statement)
{
    return std::make_unique<StatementRows>(std::move(statement));
}

std::unique_ptr<Cursor> no_rows() { return std::make_unique<NoRows>(); }

} // namespace tolvex::embedded
