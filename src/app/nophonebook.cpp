#include "app/nophonebook.h"

#include "core/globals.h"
#include "core/language.h"

#include <QDialogButtonBox>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QStyle>
#include <QVBoxLayout>

using namespace mLanguageGobals;

FormNoPhonebook::FormNoPhonebook(const QString& reason, QWidget* parent) : QDialog(parent) {
    setObjectName(QStringLiteral("FormNoPhonebook"));
    setWindowTitle(AppTitle());
    auto* icon = new QLabel(this);
    const int side = style()->pixelMetric(QStyle::PM_MessageBoxIconSize, nullptr, this);
    icon->setPixmap(style()->standardIcon(QStyle::SP_MessageBoxWarning, nullptr, this).pixmap(side, side));
    icon->setAlignment(Qt::AlignTop);
    m_reason = new QLabel(reason, this);
    m_reason->setObjectName(QStringLiteral("lblReason"));
    m_reason->setWordWrap(true);
    m_reason->setTextInteractionFlags(Qt::TextSelectableByMouse);
    m_reason->setMinimumWidth(440);

    auto* buttons = new QDialogButtonBox(this);
    OpenButton = buttons->addButton(msgOpenPhonebookButton, QDialogButtonBox::AcceptRole);
    NewButton = buttons->addButton(msgNewPhonebookButton, QDialogButtonBox::AcceptRole);
    CloseButton = buttons->addButton(msgClose, QDialogButtonBox::RejectRole);
    OpenButton->setDefault(true);
    connect(OpenButton, &QPushButton::clicked, this, [this] { done(ChoiceOpen); });
    connect(NewButton, &QPushButton::clicked, this, [this] { done(ChoiceNew); });
    connect(CloseButton, &QPushButton::clicked, this, [this] { done(ChoiceClose); });

    auto* top = new QHBoxLayout;
    top->setSpacing(16);
    top->addWidget(icon);
    top->addWidget(m_reason, 1);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(top);
    layout->addSpacing(8);
    layout->addWidget(buttons);
    layout->setSizeConstraint(QLayout::SetFixedSize);
}

QString FormNoPhonebook::Reason() const {
    return m_reason->text();
}

namespace mMain {

QString WhyNotOpened(const QString& path, const QStringList& reported) {
    const QFileInfo file(path);
    if (file.isDir()) return msgPhonebookIsFolder.arg(path);
    if (!QFileInfo(file.absolutePath()).isDir()) return msgPhonebookFolderMissing.arg(path);
    if (!file.exists()) return msgPhonebookFileMissing.arg(path);
    QString text = msgPhonebookNotOpened.arg(path);
    for (const QString& r : reported)
        text += QStringLiteral("\n\n") + r;
    return text;
}

} // namespace mMain
