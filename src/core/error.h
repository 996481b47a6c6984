#pragma once
// The error that travels up the chain of callers. Every procedure with a place name declares it
// first through HUNT_PLACE; when an exception leaves the procedure, the guard adds the place and
// the argument values to the call stack of that exception.
//
// Each HuntERR::Error carries its own call stack (shared by its copies, so a rethrow by copy keeps
// it), the system error as it stood when the error was raised, and the errors raised while it was
// unwinding or being handled (a rollback that fails on the way up, say). An error that is handled
// takes its stack with it. An exception of another kind has no room for a stack: its places are
// gathered beside it, one trail for the exception in flight, and begun anew for the next one.

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>
#include <QVariant>
#include <cerrno>
#include <exception>
#include <memory>
#include <utility>

namespace HuntERR {

struct Trail;

// An error raised while another was unwinding or being handled, as the report shows it.
struct LaterError {
    qint32 number = 0;
    QString description;
    QString source;
    QStringList stack; // its own places, then the procedure it was raised in
    int systemError = 0;
};

class Error : public std::exception {
  public:
    Error(qint32 number, const QString& description, const QString& source = QString());
    Error(const Error& other) noexcept;
    Error& operator=(const Error& other) noexcept;
    ~Error() override;
    qint32 Number() const;
    const QString& Description() const;
    const QString& Source() const;
    const char* what() const noexcept override;
    // The places this error has passed on its way up, innermost first.
    const QStringList& Stack() const;
    // errno as it stood when the error was raised.
    int SystemError() const;
    // The errors raised while this one was unwinding or being handled, in the order they happened.
    QList<LaterError> LaterErrors() const;

  private:
    struct AtRaise {
        int systemError;
    };
    Error(AtRaise at, qint32 number, const QString& description, const QString& source);
    friend struct TrailAccess;
    std::shared_ptr<Trail> m_trail;
};

// What was gathered for the exception of another kind that the calling catch block handles: its
// places, the system error when its first place was recorded (else now), and the errors raised
// while it unwound. The gathering is used up.
struct ForeignTrail {
    QStringList stack;
    int systemError = 0;
    QList<LaterError> later;
};
ForeignTrail TakeForeignTrail();

// The call stack of the error raised last on this thread, kept after the error is handled so that
// the caller can look at it: one line a place, innermost first.
const QStringList& PendingStack();
// Forgets that stack, and the places gathered for an exception of another kind.
void ClearPendingStack();
// Adds a line to the stack of the error raised last (for a helper that raises without a guard).
void AppendPlace(const QString& line);

namespace detail {
// The unwinding depth of the exception of another kind whose places are being gathered; 0: none.
inline thread_local int tForeignLevel = 0;
// A guard's procedure was entered below that depth: the exception has been caught since.
void Settle(int depth);
// A guard is being destroyed by an exception at unwinding depth `depth`.
void Unwound(const QString& line, int depth, int systemError);
} // namespace detail

// Text of one argument value, by kind.
QString ArgText(const QVariant& v);
inline QString ArgText(const QString& s) {
    return s;
}
inline QString ArgText(const char* s) {
    return QString::fromUtf8(s);
}
inline QString ArgText(bool b) {
    return b ? QStringLiteral("True") : QStringLiteral("False");
}
inline QString ArgText(int v) {
    return QString::number(v);
}
inline QString ArgText(qint16 v) {
    return QString::number(v);
}
inline QString ArgText(long v) {
    return QString::number(v);
}
inline QString ArgText(long long v) {
    return QString::number(v);
}
inline QString ArgText(double v) {
    return QString::number(v);
}
inline QString ArgText(const QByteArray&) {
    return QStringLiteral("{Array}");
}
template <class T> QString ArgText(const T*) {
    return QStringLiteral("{?}");
}
template <class T> QString ArgText(T*) {
    return QStringLiteral("{?}");
}
template <class T> auto ArgText(const T&) -> std::enable_if_t<std::is_class_v<T>, QString> {
    return QStringLiteral("{?}");
}

template <class... A> QStringList ArgList(const A&... a) {
    return QStringList{ArgText(a)...};
}

// Guard object: on unwinding, formats the argument values (only then) and records the place.
template <class F> class Place {
  public:
    Place(const char* place, F args)
        : m_place(place), m_args(std::move(args)), m_count(std::uncaught_exceptions()) {
        if (detail::tForeignLevel > m_count) detail::Settle(m_count);
    }
    Place(const Place&) = delete;
    Place& operator=(const Place&) = delete;
    ~Place() {
        const int depth = std::uncaught_exceptions();
        if (depth > m_count) {
            const int systemError = errno; // before the formatting below can change it
            try {
                QString line = QStringLiteral("    ") + QString::fromUtf8(m_place);
                const QStringList vals = m_args();
                if (!vals.isEmpty())
                    line += QStringLiteral(" {") + vals.join(QStringLiteral(", ")) + QStringLiteral("}");
                detail::Unwound(line, depth, systemError);
            } catch (...) {
            }
        }
    }

  private:
    const char* m_place;
    F m_args;
    int m_count;
};

template <class F> Place<F> MakePlace(const char* place, F args) {
    return Place<F>(place, std::move(args));
}

} // namespace HuntERR

#define HUNT_PLACE(place, ...)                                                                               \
    auto huntPlace_ = HuntERR::MakePlace(place, [&]() { return HuntERR::ArgList(__VA_ARGS__); });            \
    (void)huntPlace_
