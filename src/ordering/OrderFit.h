#pragma once

#include <cstddef>
#include <optional>
#include <string>

#include "data/TextLengths.h"
#include "ordering/OrderDraft.h"
#include "screen/Field.h"

namespace zelvo::ordering {

/// A value of the order that its tables can't hold: what the doctor is told, the field where it stands, and
/// the herb line (from 0) when it stands in one.
struct Misfit {
    std::string message;
    screen::Field* field = nullptr;
    int herbRow = -1;
};

/// What the doctor is told of a text that is by so many characters too long.
std::string tooLong(const std::string& name, std::size_t characters);

/// The first such value of an order that has passed its checks: an option that the pharmacy has entered
/// without a key or slot, a quantity out of its range, a herb line beyond its numbers, a text longer than its
/// column. Nothing when the order can be stored.
std::optional<Misfit> firstMisfit(const OrderDraft& draft, const data::TextLengths& lengths);

}  // namespace zelvo::ordering
