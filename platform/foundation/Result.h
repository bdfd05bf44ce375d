#pragma once

#include "platform/foundation/FatalError.h"
#include "platform/foundation/Finding.h"

#include <utility>
#include <variant>

/// The outcome of work on input that may be bad: a value, or one line that says what is wrong with the input.
///     return Failure{"no such file"};
template <class T>
class Result {
public:
    Result(T value) : m_outcome(std::in_place_index<0>, std::move(value)) {} // NOLINT: reads as `return value`
    Result(Failure failure) : m_outcome(std::in_place_index<1>, std::move(failure)) {} // NOLINT: likewise

    [[nodiscard]] explicit operator bool() const { return m_outcome.index() == 0; }
    [[nodiscard]] const T& value() const& { return *valueOf(this); }
    [[nodiscard]] T& value() & { return *valueOf(this); }
    [[nodiscard]] T&& value() && { return std::move(*valueOf(this)); }
    /// Taking the failure of a success, or the value of a failure, stops the program.
    [[nodiscard]] const Failure& failure() const { return *require(std::get_if<1>(&m_outcome)); }

private:
    template <class Self>
    static auto* valueOf(Self* self) {
        return require(std::get_if<0>(&self->m_outcome));
    }
    template <class Part>
    static Part* require(Part* part) {
        if (part == nullptr) {
            fatalError("a result was taken for what it is not");
        }
        return part;
    }

    std::variant<T, Failure> m_outcome;
};
