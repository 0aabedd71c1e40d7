#pragma once

#include <utility>

namespace zelvo::basics {

/// Holds a value in its place for as long as it lives; then what stood there before is back.
template <class Value>
class Held {
public:
    Held(Value& place, Value value) : place_(place), former_(std::exchange(place, std::move(value))) {}
    ~Held() { place_ = std::move(former_); }
    Held(const Held&) = delete;
    Held& operator=(const Held&) = delete;

private:
    Value& place_;
    Value former_;
};

}  // namespace zelvo::basics
