#include "exchange/ui/csvmappingdialog.h"

#include "core/error.h"
#include "core/language.h"
#include "exchange/csvreader.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFile>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QStringDecoder>
#include <QTableWidget>
#include <QVBoxLayout>

using exchange::CsvColumn;
using exchange::CsvField;
using exchange::CsvPreset;
using namespace mLanguageGobals;

namespace mExchange {

namespace {

// Rows read for the sample values.
constexpr int kSampleRows = 50;
constexpr int kSamplesShown = 3;

bool IsAddressPart(CsvField f) {
    return f == CsvField::Street || f == CsvField::Street2 || f == CsvField::City || f == CsvField::State ||
           f == CsvField::Zip || f == CsvField::Country;
}

// Encodings offered: those the reader decodes itself and those Qt knows here.
QStringList EncodingNames() {
    QStringList names = {QStringLiteral("UTF-8"), QStringLiteral("UTF-16LE"), QStringLiteral("UTF-16BE"),
                         QStringLiteral("Windows-1252")};
    for (const char* other : {"ISO-8859-1", "ISO-8859-15", "ISO-8859-2", "Windows-1250", "Windows-1251",
                              "KOI8-R", "IBM850", "Shift_JIS", "GB18030", "Big5"})
        if (QStringDecoder(other).isValid()) names << QLatin1String(other);
    return names;
}

void SelectData(QComboBox* box, const QVariant& data, const QString& text) {
    int at = box->findData(data);
    if (at < 0) {
        box->addItem(text, data);
        at = box->count() - 1;
    }
    box->setCurrentIndex(at);
}

} // namespace

CsvMappingDialog::CsvMappingDialog(const QString& path, const QStringList& typeNames, QWidget* parent)
    : QDialog(parent), m_path(path), m_typeNames(typeNames) {
    HUNT_PLACE("CsvMappingDialog.Load", path);
    setObjectName(QStringLiteral("CsvMapping"));
    setWindowTitle(msgExMapTitle);

    using F = CsvField;
    m_entries = {{F::Ignore, {}, msgExMapIgnore},           {F::Extra, {}, msgExMapKeep},
                 {F::FullName, {}, msgExFieldFullName},     {F::Prefix, {}, msgExFieldPrefix},
                 {F::FirstName, {}, msgExFieldFirstName},   {F::MiddleName, {}, msgExFieldMiddleName},
                 {F::LastName, {}, msgExFieldLastName},     {F::Suffix, {}, msgExFieldSuffix},
                 {F::Title, {}, msgExFieldTitle},           {F::Company, {}, msgExFieldCompany},
                 {F::Department, {}, msgExFieldDepartment}, {F::Street, {}, msgExFieldStreet},
                 {F::Street2, {}, msgExFieldStreet2},       {F::City, {}, msgExFieldCity},
                 {F::State, {}, msgExFieldState},           {F::Zip, {}, msgExFieldZip},
                 {F::Country, {}, msgExFieldCountry},       {F::Comment, {}, msgExFieldComment},
                 {F::Category, {}, msgExFieldCategory},     {F::Group, {}, msgExFieldGroup},
                 {F::Favorite, {}, msgExFieldFavorite},     {F::NumberType, {}, msgExFieldNumberType},
                 {F::Number, {}, msgExFieldNumberOwnType}};
    for (const QString& type : m_typeNames)
        m_entries.append({F::Number, type, msgExFieldNumber.arg(type)});

    Separator = new QComboBox(this);
    Separator->setObjectName(QStringLiteral("Separator"));
    Separator->addItem(msgExMapComma, QString(QLatin1Char(',')));
    Separator->addItem(msgExMapSemicolon, QString(QLatin1Char(';')));
    Separator->addItem(msgExMapTab, QString(QLatin1Char('\t')));
    Encoding = new QComboBox(this);
    Encoding->setObjectName(QStringLiteral("Encoding"));
    for (const QString& name : EncodingNames())
        Encoding->addItem(name, name);
    Preset = new QComboBox(this);
    Preset->setObjectName(QStringLiteral("Preset"));
    for (CsvPreset p : {CsvPreset::Generic, CsvPreset::WebMail, CsvPreset::DesktopMail,
                        CsvPreset::Thunderbird, CsvPreset::Kelvarin})
        Preset->addItem(exchange::CsvPresetName(p), int(p));

    Columns = new QTableWidget(0, 3, this);
    Columns->setObjectName(QStringLiteral("Columns"));
    Columns->setHorizontalHeaderLabels({msgExMapColumn, msgExMapSamples, msgExMapField});
    Columns->verticalHeader()->hide();
    Columns->setSelectionMode(QAbstractItemView::NoSelection);
    Columns->setEditTriggers(QAbstractItemView::NoEditTriggers);
    Columns->horizontalHeader()->setSectionResizeMode(0, QHeaderView::ResizeToContents);
    Columns->horizontalHeader()->setSectionResizeMode(1, QHeaderView::Stretch);
    Columns->horizontalHeader()->setSectionResizeMode(2, QHeaderView::ResizeToContents);

    auto* top = new QHBoxLayout;
    for (auto [label, box] : {std::pair{msgExMapSeparator, Separator}, std::pair{msgExMapEncoding, Encoding},
                              std::pair{msgExMapPreset, Preset}}) {
        auto* caption = new QLabel(label, this);
        caption->setBuddy(box);
        top->addWidget(caption);
        top->addWidget(box);
        top->addSpacing(12);
    }
    top->addStretch();
    auto* hint = new QLabel(msgExMapHint, this);
    hint->setWordWrap(true);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    buttons->setObjectName(QStringLiteral("Buttons"));
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(top);
    layout->addWidget(hint);
    layout->addWidget(Columns, 1);
    layout->addWidget(buttons);
    resize(820, 520);

    reread();
    connect(Separator, qOverload<int>(&QComboBox::currentIndexChanged), this, [this] { reread(); });
    connect(Encoding, qOverload<int>(&QComboBox::currentIndexChanged), this, [this] { reread(); });
    connect(Preset, qOverload<int>(&QComboBox::currentIndexChanged), this, [this] { applyPreset(); });
}

void CsvMappingDialog::reread() {
    HUNT_PLACE("CsvMappingDialog.reread");
    const bool first = !m_read;
    m_read = true;
    QStringList header;
    QList<QStringList> samples;
    QFile file(m_path);
    if (file.open(QIODevice::ReadOnly)) {
        // The first time the file says its separator and encoding; after that the boxes do.
        exchange::CsvReader reader(&file, first ? QChar() : Separator->currentData().toString().at(0),
                                   first ? QString() : Encoding->currentData().toString());
        reader.next(header);
        QStringList row;
        samples.resize(header.size());
        for (int n = 0; n < kSampleRows && reader.next(row); ++n)
            for (int i = 0; i < row.size() && i < header.size(); ++i)
                if (samples[i].size() < kSamplesShown && !row[i].trimmed().isEmpty())
                    samples[i] << row[i].simplified();
        if (first) {
            const QSignalBlocker a(Separator), b(Encoding);
            const QChar sep = reader.separator();
            SelectData(Separator, QString(sep), QString(sep));
            SelectData(Encoding, reader.encoding(), reader.encoding());
        }
    }
    const bool sameColumns = !first && header == m_header;
    m_header = header;
    m_samples = samples;
    if (sameColumns) {
        for (int i = 0; i < m_samples.size(); ++i)
            Columns->item(i, 1)->setText(m_samples[i].join(QStringLiteral("  |  ")));
        return;
    }
    {
        const QSignalBlocker block(Preset);
        Preset->setCurrentIndex(Preset->findData(int(exchange::DetectCsvPreset(m_header))));
    }
    applyPreset();
}

int CsvMappingDialog::entryOf(const CsvColumn& column) {
    for (int i = 0; i < m_entries.size(); ++i)
        if (m_entries[i].field == column.field &&
            (column.field != CsvField::Number || m_entries[i].typeName == column.typeName))
            return i;
    // A number type the phonebook does not have yet: the import makes it.
    m_entries.append({column.field, column.typeName, msgExFieldNumber.arg(column.typeName)});
    return int(m_entries.size()) - 1;
}

void CsvMappingDialog::fillBox(QComboBox* box, const CsvColumn& column) {
    const int chosen = entryOf(column);
    for (int i = 0; i < m_entries.size(); ++i)
        box->addItem(m_entries[i].text, i);
    box->setCurrentIndex(chosen);
}

void CsvMappingDialog::applyPreset() {
    HUNT_PLACE("CsvMappingDialog.applyPreset");
    m_presetMap = exchange::CsvMapping(CsvPreset(Preset->currentData().toInt()), m_header);
    for (const CsvColumn& c : m_presetMap)
        entryOf(c); // every box offers the same entries
    Columns->setRowCount(0);
    Columns->setRowCount(int(m_header.size()));
    for (int i = 0; i < m_header.size(); ++i) {
        const QString name = m_header[i].trimmed().isEmpty() ? msgExColumn.arg(i + 1) : m_header[i];
        Columns->setItem(i, 0, new QTableWidgetItem(name));
        Columns->setItem(i, 1, new QTableWidgetItem(m_samples.value(i).join(QStringLiteral("  |  "))));
        auto* box = new QComboBox;
        box->setMaxVisibleItems(20);
        fillBox(box, m_presetMap[i]);
        Columns->setCellWidget(i, 2, box);
    }
    if (auto* ok = findChild<QDialogButtonBox*>(QStringLiteral("Buttons"))->button(QDialogButtonBox::Ok))
        ok->setEnabled(!m_header.isEmpty());
    Columns->setToolTip(m_header.isEmpty() ? msgExMapEmpty : QString());
}

QComboBox* CsvMappingDialog::fieldBox(int column) const {
    return qobject_cast<QComboBox*>(Columns->cellWidget(column, 2));
}

bool CsvMappingDialog::mapColumn(int column, const QString& entry) {
    QComboBox* box = fieldBox(column);
    const int at = box ? box->findText(entry) : -1;
    if (at < 0) return false;
    box->setCurrentIndex(at);
    return true;
}

CsvChoice CsvMappingDialog::choice() const {
    CsvChoice out;
    out.separator = Separator->currentData().toString().at(0);
    out.encoding = Encoding->currentData().toString();
    QList<bool> changed;
    int addressSlot = -1;
    for (int i = 0; i < m_header.size(); ++i) {
        const Entry& e = m_entries[fieldBox(i)->currentData().toInt()];
        const CsvColumn& preset = m_presetMap[i];
        const bool same =
            preset.field == e.field && (e.field != CsvField::Number || preset.typeName == e.typeName);
        out.mapping << (same ? preset : CsvColumn{e.field, e.typeName, 0, QString()});
        changed << !same;
        if (same && IsAddressPart(e.field) && (addressSlot < 0 || preset.slot < addressSlot))
            addressSlot = preset.slot;
    }
    for (int i = 0; i < out.mapping.size(); ++i) {
        if (!changed[i]) continue;
        CsvColumn& c = out.mapping[i];
        // A part of the address chosen by hand belongs to the first address of the file.
        if (IsAddressPart(c.field)) c.slot = addressSlot < 0 ? 1 : addressSlot;
        // A type column chosen by hand names the type of the next number column.
        if (c.field == CsvField::NumberType) {
            c.slot = 1000 + i;
            for (int j = i + 1; j < out.mapping.size(); ++j)
                if (out.mapping[j].field == CsvField::Number) {
                    out.mapping[j].slot = c.slot;
                    break;
                }
        }
    }
    return out;
}

} // namespace mExchange
