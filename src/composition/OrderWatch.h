#pragma once

namespace zelvo::composition {

/// Told when something that the price depends on has changed, so that no order goes out at a price that no
/// longer fits.
class OrderWatch {
public:
    virtual ~OrderWatch() = default;
    virtual void priceOutdated() = 0;
};

}  // namespace zelvo::composition
