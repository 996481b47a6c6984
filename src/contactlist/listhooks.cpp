#include "contactlist/listhooks.h"

namespace mLV {

ListHooks& Hooks() {
    static ListHooks hooks;
    return hooks;
}

} // namespace mLV
