#include "core/error.h"

#include <algorithm>
#include <atomic>
#include <vector>

namespace HuntERR {

// The account of one error: what it is, the places it passed, and what happened on its way.
struct Trail {
    qint32 number = 0;
    QString description;
    QString source;
    QByteArray what;
    QStringList places;
    int systemError = 0;
    int depth = 0;               // std::uncaught_exceptions() while it travels
    std::atomic<int> holders{0}; // Error objects alive on it; none for an exception of another kind
    std::vector<std::shared_ptr<Trail>> later;
    int placesOfFirst = 0; // places the error it was raised during had gathered by then
};

struct TrailAccess {
    static const std::shared_ptr<Trail>& of(const Error& e) { return e.m_trail; }
};

namespace {

// Trails of this thread's errors, oldest first; those whose errors are all gone are dropped.
thread_local std::vector<std::weak_ptr<Trail>> tLive;
// The trail PendingStack shows.
thread_local std::shared_ptr<Trail> tLast;
// Trails of exceptions of another kind, one per unwinding depth, shallowest first.
thread_local std::vector<std::shared_ptr<Trail>> tForeign;

bool alive(const std::shared_ptr<Trail>& t) {
    return t && t->holders.load() > 0;
}

void prune() {
    tLive.erase(std::remove_if(tLive.begin(), tLive.end(),
                               [](const std::weak_ptr<Trail>& w) { return !alive(w.lock()); }),
                tLive.end());
}

void foreignChanged() {
    detail::tForeignLevel = tForeign.empty() ? 0 : tForeign.back()->depth;
}

// The trail of our error that the innermost active catch block handles, if any.
std::shared_ptr<Trail> handled() {
    const std::exception_ptr p = std::current_exception();
    if (!p) return nullptr;
    try {
        std::rethrow_exception(p);
    } catch (const Error& e) {
        return TrailAccess::of(e);
    } catch (...) {
    }
    return nullptr;
}

// The newest error of ours that is unwinding at `depth`: alive, and not held by a catch block.
std::shared_ptr<Trail> unwindingAt(int depth) {
    std::shared_ptr<Trail> held;
    bool heldKnown = false;
    for (auto it = tLive.rbegin(); it != tLive.rend(); ++it) {
        std::shared_ptr<Trail> t = it->lock();
        if (!alive(t) || t->depth != depth) continue;
        if (!heldKnown) {
            held = handled();
            heldKnown = true;
        }
        if (t != held) return t;
    }
    return nullptr;
}

// The trail for the exception of another kind unwinding at `depth`, begun if there is none.
std::shared_ptr<Trail> foreignAt(int depth, int systemError) {
    while (!tForeign.empty() && tForeign.back()->depth > depth)
        tForeign.pop_back(); // caught long since
    if (tForeign.empty() || tForeign.back()->depth != depth) {
        auto t = std::make_shared<Trail>();
        t->depth = depth;
        t->systemError = systemError;
        tForeign.push_back(t);
        tLast = t;
        foreignChanged();
    }
    return tForeign.back();
}

void addLater(QList<LaterError>& out, const Trail& t) {
    for (const std::shared_ptr<Trail>& l : t.later) {
        LaterError e{l->number, l->description, l->source, l->places, l->systemError};
        // The procedure being left when it was raised is the next place of the error it was raised in.
        if (t.places.size() > l->placesOfFirst) e.stack.append(t.places.at(l->placesOfFirst));
        out.append(e);
        addLater(out, *l);
    }
}

} // namespace

Error::Error(qint32 number, const QString& description, const QString& source)
    : Error(AtRaise{errno}, number, description, source) {}

Error::Error(AtRaise at, qint32 number, const QString& description, const QString& source)
    : m_trail(std::make_shared<Trail>()) {
    Trail& t = *m_trail;
    t.number = number;
    t.description = description;
    t.source = source;
    t.what = QStringLiteral("%1 (%2)").arg(description, QString::number(number)).toUtf8();
    t.systemError = at.systemError;
    const int depth = std::uncaught_exceptions();
    t.depth = depth + 1;
    t.holders = 1;
    prune();

    // Raised while another exception unwinds (a cleanup that fails) or while a catch block
    // handles one of ours: it is kept with that one, which stays the first in the report.
    std::shared_ptr<Trail> first;
    bool duringUnwinding = false;
    if (depth > 0) {
        first = unwindingAt(depth);
        if (!first) first = foreignAt(depth, at.systemError);
        duringUnwinding = true;
    } else {
        first = handled();
    }
    if (first) {
        t.placesOfFirst = int(first->places.size());
        first->later.push_back(m_trail);
    }
    if (!duringUnwinding) tLast = m_trail;
    tLive.push_back(m_trail);
}

Error::Error(const Error& other) noexcept : std::exception(other), m_trail(other.m_trail) {
    ++m_trail->holders;
}

Error& Error::operator=(const Error& other) noexcept {
    if (m_trail != other.m_trail) {
        --m_trail->holders;
        m_trail = other.m_trail;
        ++m_trail->holders;
    }
    return *this;
}

Error::~Error() {
    if (--m_trail->holders == 0) prune();
}

qint32 Error::Number() const {
    return m_trail->number;
}
const QString& Error::Description() const {
    return m_trail->description;
}
const QString& Error::Source() const {
    return m_trail->source;
}
const char* Error::what() const noexcept {
    return m_trail->what.constData();
}
const QStringList& Error::Stack() const {
    return m_trail->places;
}
int Error::SystemError() const {
    return m_trail->systemError;
}

QList<LaterError> Error::LaterErrors() const {
    QList<LaterError> out;
    addLater(out, *m_trail);
    return out;
}

ForeignTrail TakeForeignTrail() {
    ForeignTrail r;
    r.systemError = errno;
    const int depth = std::uncaught_exceptions() + 1; // the one the calling catch block handles
    const auto it = std::find_if(tForeign.begin(), tForeign.end(),
                                 [depth](const std::shared_ptr<Trail>& t) { return t->depth == depth; });
    if (it == tForeign.end()) return r;
    r.stack = (*it)->places;
    r.systemError = (*it)->systemError;
    addLater(r.later, **it);
    tForeign.erase(it, tForeign.end());
    foreignChanged();
    return r;
}

const QStringList& PendingStack() {
    static const QStringList none;
    return tLast ? tLast->places : none;
}

void ClearPendingStack() {
    tLast.reset();
    tForeign.clear();
    foreignChanged();
}

void AppendPlace(const QString& line) {
    prune();
    if (!tLive.empty())
        tLive.back().lock()->places.append(line);
    else if (tLast)
        tLast->places.append(line);
}

namespace detail {

void Settle(int depth) {
    // Code runs at a shallower depth than the gathered trails: their exceptions have been caught.
    // While a catch block is still busy with one, it keeps its trail for the report or a rethrow.
    if (std::current_exception()) return;
    while (!tForeign.empty() && tForeign.back()->depth > depth)
        tForeign.pop_back();
    foreignChanged();
}

void Unwound(const QString& line, int depth, int systemError) {
    std::shared_ptr<Trail> t = unwindingAt(depth);
    if (!t) t = foreignAt(depth, systemError);
    t->places.append(line);
}

} // namespace detail

QString ArgText(const QVariant& v) {
    if (v.isNull()) return QStringLiteral("{Null}");
    switch (v.typeId()) {
    case QMetaType::QString:
        return v.toString();
    case QMetaType::QByteArray:
        return QStringLiteral("{Array}");
    case QMetaType::QStringList:
    case QMetaType::QVariantList:
        return QStringLiteral("{Array}");
    case QMetaType::Bool:
        return ArgText(v.toBool());
    default:
        return v.canConvert<QString>() ? v.toString() : QStringLiteral("{?}");
    }
}

} // namespace HuntERR
