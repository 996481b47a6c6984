#include "sync/merge.h"

#include "core/language.h"

using exchange::ContactRecord;
using exchange::NumberRow;
using namespace mLanguageGobals;

namespace carddav {

namespace {

class Merger {
  public:
    Merger(const ContactRecord& base, const ContactRecord& local, const ContactRecord& remote,
           const QDateTime& when)
        : m_base(base), m_local(local), m_remote(remote),
          m_when(when.toString(QStringLiteral("yyyy-MM-dd HH:mm"))) {}

    MergeResult run() {
        MergeResult out;
        ContactRecord& r = out.record;
        r.FullName = text(msgFullName, &ContactRecord::FullName);
        r.Title = text(msgTitle, &ContactRecord::Title);
        r.Company = text(msgCompany, &ContactRecord::Company);
        r.Address = text(msgAddress, &ContactRecord::Address);
        r.City = text(msgCity, &ContactRecord::City);
        r.State = text(msgStateProv, &ContactRecord::State);
        r.Zip = text(msgZipPostalCode, &ContactRecord::Zip);
        photo(r);
        r.CategoryPath = path(msgCategory, &ContactRecord::CategoryPath);
        r.GroupPath = path(msgGroup, &ContactRecord::GroupPath);
        favorite(r);
        numbers(r);
        // The comment last, so that the lines of the other conflicts follow it.
        r.Comment = text(msgComment, &ContactRecord::Comment);
        for (const QString& line : m_lines)
            r.Comment += (r.Comment.isEmpty() ? QString() : QStringLiteral("\n")) + line;
        out.conflicts = m_conflicts;
        return out;
    }

  private:
    // Which side's value a field takes; true when both changed it differently.
    template <typename T> bool pick(const T& base, const T& local, const T& remote, T* out) {
        if (local == base || local == remote) {
            *out = local == base ? remote : local;
            return false;
        }
        *out = local;
        if (remote == base) return false;
        ++m_conflicts;
        return true;
    }

    void note(const QString& field, const QString& value) {
        m_lines << msgSyncConflictLine.arg(field, m_when, value);
    }

    QString text(const QString& label, QString ContactRecord::*field) {
        QString out;
        if (pick(m_base.*field, m_local.*field, m_remote.*field, &out)) note(label, m_remote.*field);
        return out;
    }

    QStringList path(const QString& label, QStringList ContactRecord::*field) {
        QStringList out;
        if (pick(m_base.*field, m_local.*field, m_remote.*field, &out))
            note(label, (m_remote.*field).join(QLatin1Char('/')));
        return out;
    }

    void photo(ContactRecord& r) {
        using Photo = std::pair<QByteArray, QString>;
        Photo out;
        if (pick(Photo(m_base.Photo, m_base.PhotoExt), Photo(m_local.Photo, m_local.PhotoExt),
                 Photo(m_remote.Photo, m_remote.PhotoExt), &out))
            note(msgPhoto,
                 m_remote.Photo.isEmpty() ? QString() : msgExBinaryLeftOut.arg(m_remote.Photo.size()));
        r.Photo = out.first;
        r.PhotoExt = out.second;
    }

    void favorite(ContactRecord& r) {
        using Favorite = std::pair<bool, QStringList>;
        auto of = [](const ContactRecord& c) {
            return Favorite(c.Favorite, c.Favorite ? c.FavoritePath : QStringList());
        };
        Favorite out;
        if (pick(of(m_base), of(m_local), of(m_remote), &out))
            note(msgFavorites, m_remote.Favorite
                                   ? QStringLiteral("/") + m_remote.FavoritePath.join(QLatin1Char('/'))
                                   : QString());
        r.Favorite = out.first;
        r.FavoritePath = out.second;
    }

    // The local list, less what the server removed, plus what the server added.
    void numbers(ContactRecord& r) {
        const QList<NumberRow>& base = m_base.Numbers;
        const QList<NumberRow>& local = m_local.Numbers;
        const QList<NumberRow>& remote = m_remote.Numbers;
        if (local == base || remote == base || local == remote) {
            r.Numbers = local == base ? remote : local;
            return;
        }
        ++m_conflicts;
        for (const NumberRow& row : local)
            if (!base.contains(row) || remote.contains(row)) r.Numbers << row;
        for (const NumberRow& row : remote)
            if (!base.contains(row) && !r.Numbers.contains(row)) r.Numbers << row;
        while (r.Numbers.size() > exchange::kNumberRows) {
            const NumberRow row = r.Numbers.takeLast();
            note(row.type.isEmpty() ? msgSyncNumber : row.type, row.value);
        }
    }

    const ContactRecord& m_base;
    const ContactRecord& m_local;
    const ContactRecord& m_remote;
    QString m_when;
    QStringList m_lines;
    int m_conflicts = 0;
};

} // namespace

MergeResult MergeContact(const ContactRecord& base, const ContactRecord& local, const ContactRecord& remote,
                         const QDateTime& when) {
    return Merger(base, local, remote, when).run();
}

} // namespace carddav
