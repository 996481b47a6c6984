#include "trees/viewhooks.h"

namespace mTV {

ViewHooks& Hooks() {
    static ViewHooks hooks;
    return hooks;
}

} // namespace mTV
