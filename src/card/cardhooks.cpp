#include "card/cardhooks.h"

namespace mCard {

CardHooks& Hooks() {
    static CardHooks hooks;
    return hooks;
}

} // namespace mCard
