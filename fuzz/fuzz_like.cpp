// Like patterns against values. The input is a pattern, a zero byte and a value. Patterns without
// a class are also matched by a plain recursion over pattern and value, which must agree.
#include "phonebook/store/jetfunctions.h"

#include <cstdint>
#include <cstdlib>
#include <vector>

namespace {

bool byDefinition(const QString& p, const QString& v) {
    // matches[i][j]: pattern from i against value from j.
    std::vector<std::vector<char>> matches(p.size() + 1, std::vector<char>(v.size() + 1, 0));
    matches[p.size()][v.size()] = 1;
    for (qsizetype i = p.size() - 1; i >= 0; --i)
        for (qsizetype j = v.size(); j >= 0; --j) {
            const QChar c = p[i];
            if (c == u'*') {
                matches[i][j] = matches[i + 1][j] || (j < v.size() && matches[i][j + 1]);
            } else if (j < v.size()) {
                const bool one = c == u'?' || (c == u'#' ? v[j].isDigit() : c == v[j]);
                matches[i][j] = one && matches[i + 1][j + 1];
            }
        }
    return matches[0][0];
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const auto* text = reinterpret_cast<const char*>(data);
    size_t split = 0;
    while (split < size && data[split] != 0)
        ++split;
    const QString pattern = QString::fromUtf8(text, qsizetype(split));
    const QString value =
        split < size ? QString::fromUtf8(text + split + 1, qsizetype(size - split - 1)) : QString();
    const bool matches = dao::JetLikePattern(pattern).Matches(value);
    if (!pattern.contains(u'[') && value.size() <= 512 && pattern.size() <= 512 &&
        matches != byDefinition(pattern.toCaseFolded(), value.toCaseFolded()))
        std::abort();
    return 0;
}
