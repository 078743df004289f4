#include "platform/given_answers.hpp"

#include <utility>

namespace tolvex {

namespace {

const std::string* in_force = nullptr;

} // namespace

GivenAnswers::GivenAnswers(std::string lines) : lines_(std::move(lines)) { in_force = &lines_; }

GivenAnswers::~GivenAnswers() { in_force = nullptr; }

const std::string* GivenAnswers::current() { return in_force; }

} // namespace tolvex
