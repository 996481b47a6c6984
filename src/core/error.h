#pragma once
// The error that travels up the chain of callers. Every procedure with a place name declares it
// first through HUNT_PLACE; when an exception leaves the procedure, the guard adds the place and
// the argument values to the call stack of the pending error.

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <QVariant>
#include <exception>
#include <utility>

namespace HuntERR {

class Error : public std::exception {
public:
    Error(qint32 number, const QString& description, const QString& source = QString());
    qint32 Number() const { return m_number; }
    const QString& Description() const { return m_description; }
    const QString& Source() const { return m_source; }
    const char* what() const noexcept override { return m_what.constData(); }

private:
    qint32 m_number;
    QString m_description;
    QString m_source;
    QByteArray m_what;
};

// The call stack gathered since the last error was raised: one line a place, innermost first.
// It belongs to the one pending error; raising a new error starts it anew.
const QStringList& PendingStack();
void ClearPendingStack();
void AppendPlace(const QString& line);

// Text of one argument value, by kind.
QString ArgText(const QVariant& v);
inline QString ArgText(const QString& s) { return s; }
inline QString ArgText(const char* s) { return QString::fromUtf8(s); }
inline QString ArgText(bool b) { return b ? QStringLiteral("True") : QStringLiteral("False"); }
inline QString ArgText(int v) { return QString::number(v); }
inline QString ArgText(qint16 v) { return QString::number(v); }
inline QString ArgText(long v) { return QString::number(v); }
inline QString ArgText(long long v) { return QString::number(v); }
inline QString ArgText(double v) { return QString::number(v); }
inline QString ArgText(const QByteArray&) { return QStringLiteral("{Array}"); }
template <class T> QString ArgText(const T*) { return QStringLiteral("{?}"); }
template <class T> QString ArgText(T*) { return QStringLiteral("{?}"); }
template <class T> auto ArgText(const T&) -> std::enable_if_t<std::is_class_v<T>, QString> {
    return QStringLiteral("{?}");
}

template <class... A> QStringList ArgList(const A&... a) { return QStringList{ArgText(a)...}; }

// Guard object: on unwinding, formats the argument values (only then) and records the place.
template <class F> class Place {
public:
    Place(const char* place, F args) : m_place(place), m_args(std::move(args)), m_count(std::uncaught_exceptions()) {}
    Place(const Place&) = delete;
    Place& operator=(const Place&) = delete;
    ~Place() {
        if (std::uncaught_exceptions() > m_count) {
            try {
                QString line = QStringLiteral("    ") + QString::fromUtf8(m_place);
                const QStringList vals = m_args();
                if (!vals.isEmpty()) line += QStringLiteral(" {") + vals.join(QStringLiteral(", ")) + QStringLiteral("}");
                AppendPlace(line);
            } catch (...) {
            }
        }
    }

private:
    const char* m_place;
    F m_args;
    int m_count;
};

template <class F> Place<F> MakePlace(const char* place, F args) { return Place<F>(place, std::move(args)); }

} // namespace HuntERR

#define HUNT_PLACE(place, ...)                                                                          \
    auto huntPlace_ = HuntERR::MakePlace(place, [&]() { return HuntERR::ArgList(__VA_ARGS__); });      \
    (void)huntPlace_
