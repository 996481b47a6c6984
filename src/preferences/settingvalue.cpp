#include "preferences/settingvalue.h"

#include "core/error.h"

#include <cmath>

namespace mRegSettings {

namespace {

constexpr qint32 errTypeMismatch = 13;
constexpr qint32 errOverflow = 6;

bool parseNumber(const QString& value, double* out) {
    bool ok = false;
    const double d = value.trimmed().toDouble(&ok);
    if (ok && std::isfinite(d)) {
        *out = d;
        return true;
    }
    return false;
}

[[noreturn]] void typeMismatch() {
    throw HuntERR::Error(errTypeMismatch, QStringLiteral("Type mismatch"));
}

} // namespace

bool IsNumericSetting(const QString& value) {
    double d = 0;
    return parseNumber(value, &d);
}

double SettingNumber(const QString& value) {
    double d = 0;
    if (!parseNumber(value, &d)) typeMismatch();
    return d;
}

bool SettingBool(const QString& value) {
    const QString t = value.trimmed();
    if (t.compare(QLatin1String("True"), Qt::CaseInsensitive) == 0) return true;
    if (t.compare(QLatin1String("False"), Qt::CaseInsensitive) == 0) return false;
    return SettingNumber(t) != 0;
}

int SettingInt(const QString& value) {
    const double r = std::nearbyint(SettingNumber(value));
    if (r < -32768 || r > 32767) throw HuntERR::Error(errOverflow, QStringLiteral("Overflow"));
    return int(r);
}

} // namespace mRegSettings
