#include "support/Killing.h"

namespace zelvo::testing {

bool canDie() {
    return false;
}
void die() {}
bool diesIn(const std::function<void()>& /*program*/) {
    return false;
}

}  // namespace zelvo::testing
