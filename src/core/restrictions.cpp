#include "core/restrictions.h"

namespace mCommon {

namespace {
RestrictionRules& rules() {
    static RestrictionRules r;
    return r;
}
} // namespace

void RORestrictions(QWidget* frm) {
    if (frm && rules()) rules()(frm);
}

RestrictionRules SetRORestrictionRules(RestrictionRules r) {
    RestrictionRules old = std::move(rules());
    rules() = std::move(r);
    return old;
}

} // namespace mCommon
