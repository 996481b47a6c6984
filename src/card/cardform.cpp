#include "card/cardform.h"

#include "card/cardcombos.h"
#include "card/cardentries.h"
#include "card/cardhooks.h"
#include "card/cardrecord.h"
#include "card/cardtext.h"
#include "card/form19.h"
#include "card/photoload.h"
#include "contactlist/listfill.h"
#include "core/cfiledialog.h"
#include "core/errorreport.h"
#include "core/globals.h"
#include "core/language.h"
#include "core/seams.h"
#include "phonebook/catpath.h"
#include "phonebook/lookups.h"
#include "phonebook/storedphoto.h"
#include "preferences/preferences.h"
#include "preferences/regsettings.h"
#include "preferences/settings.h"
#include "preferences/settingvalue.h"
#include "support/controls/icons.h"
#include "support/controls/imagecombo.h"
#include "support/controls/imagelist.h"
#include "support/controls/listview.h"
#include "support/controls/photofit.h"
#include "support/controls/treeview.h"
#include "support/helpers/keys.h"
#include "support/helpers/paths.h"
#include "trees/form14.h"
#include "trees/mainview.h"
#include "trees/membership.h"
#include "trees/pedigree.h"
#include "trees/treefill.h"
#include "trees/treeselect.h"
#include "trees/viewstate.h"

#include <QCheckBox>
#include <QComboBox>
#include <QCoreApplication>
#include <QEvent>
#include <QFile>
#include <QFileInfo>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QStyle>
#include <QToolButton>

using namespace mLanguageGobals;

namespace {

const QString kRoot = QStringLiteral("ID0");
const QString kOthers = QStringLiteral("ID1");
const QString kPreferences = QStringLiteral("PreferencesNew");
const QString kContactCard = QStringLiteral("ContactCard");
// Texts of single-line fields are held to the size of their columns.
constexpr int kFieldSize = 255;

template <class W> W* make(QWidget* parent, const QString& name) {
    auto* w = new W(parent);
    w->setObjectName(name);
    return w;
}

QLineEdit* makeField(QWidget* parent, const QString& name) {
    auto* field = make<QLineEdit>(parent, name);
    field->setMaxLength(kFieldSize);
    return field;
}

QPushButton* makeButton(QWidget* parent, const QString& name) {
    auto* button = make<QPushButton>(parent, name);
    button->setAutoDefault(false);
    return button;
}

QString setting(const QString& section, const QString& key, const QString& fallback) {
    return GetSetting(AppTitle(), section, key, fallback);
}

} // namespace

CardForm::CardForm(const QString& formName, QWidget* parent) : FormDialog(formName, parent) {
    // In the order of the tab key: the name and address, the comment, the trees, the numbers, the
    // photo, then the choice of layout and the two buttons.
    lblFullName = make<QLabel>(this, QStringLiteral("lblFullName"));
    fdFullName = makeField(this, QStringLiteral("fdFullName"));
    lblIndex = make<QLabel>(this, QStringLiteral("lblIndex"));
    lbLetter = make<QLabel>(this, QStringLiteral("lbLetter"));
    lblTitle = make<QLabel>(this, QStringLiteral("lblTitle"));
    fdTitle = makeField(this, QStringLiteral("fdTitle"));
    lblCompany = make<QLabel>(this, QStringLiteral("lblCompany"));
    fdCompany = makeField(this, QStringLiteral("fdCompany"));
    lblAddress = make<QLabel>(this, QStringLiteral("lblAddress"));
    fdAddress = make<QPlainTextEdit>(this, QStringLiteral("fdAddress"));
    fdAddress->setTabChangesFocus(true);
    lblCity = make<QLabel>(this, QStringLiteral("lblCity"));
    fdCity = makeField(this, QStringLiteral("fdCity"));
    lblState = make<QLabel>(this, QStringLiteral("lblState"));
    fdState = makeField(this, QStringLiteral("fdState"));
    lblZip = make<QLabel>(this, QStringLiteral("lblZip"));
    fdZip = makeField(this, QStringLiteral("fdZip"));

    lblComment = make<QLabel>(this, QStringLiteral("lblComment"));
    fdComment = make<QPlainTextEdit>(this, QStringLiteral("fdComment"));
    fdComment->setTabChangesFocus(true);
    bnCommentMaximize = makeButton(this, QStringLiteral("bnCommentMaximize"));
    bnCommentMinimize = makeButton(this, QStringLiteral("bnCommentMinimize"));
    chWordWrap = make<QCheckBox>(this, QStringLiteral("chWordWrap"));

    lblCategory = make<QLabel>(this, QStringLiteral("lblCategory"));
    icmbCategory = make<ImageCombo>(this, QStringLiteral("icmbCategory"));
    bnAddCategory = makeButton(this, QStringLiteral("bnAddCategory"));
    lblBox = make<QLabel>(this, QStringLiteral("lblBox"));
    icmbBox = make<ImageCombo>(this, QStringLiteral("icmbBox"));
    bnAddBox = makeButton(this, QStringLiteral("bnAddBox"));
    lblFavorite = make<QLabel>(this, QStringLiteral("lblFavorite"));
    icmbFavorite = make<ImageCombo>(this, QStringLiteral("icmbFavorite"));
    bnAddFavorite = makeButton(this, QStringLiteral("bnAddFavorite"));
    bnClearFavorite = makeButton(this, QStringLiteral("bnClearFavorite"));
    CatTree = make<TreeView>(this, QStringLiteral("CatTree"));
    CatTree->hide();
    CatTree->setFocusPolicy(Qt::NoFocus);
    lblCategory->setBuddy(icmbCategory);
    lblBox->setBuddy(icmbBox);
    lblFavorite->setBuddy(icmbFavorite);

    lblRow[0] = nullptr;
    icType[0] = nullptr;
    fdNumber[0] = nullptr;
    bnCleareType[0] = nullptr;
    const QIcon clearIcon = style()->standardIcon(QStyle::SP_LineEditClearButton);
    for (int n = 1; n <= kRows; ++n) {
        lblRow[n] = make<QLabel>(this, QStringLiteral("lblRow%1").arg(n));
        lblRow[n]->setText(QStringLiteral("%1.").arg(n));
        lblRow[n]->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        icType[n] = make<ImageCombo>(this, QStringLiteral("icType%1").arg(n));
        fdNumber[n] = makeField(this, QStringLiteral("fdNumber%1").arg(n));
        bnCleareType[n] = make<QToolButton>(this, QStringLiteral("bnCleareType%1").arg(n));
        bnCleareType[n]->setIcon(clearIcon);
        bnCleareType[n]->setAutoRaise(true);
        bnCleareType[n]->setFocusPolicy(Qt::NoFocus);
    }
    cmbUpDown = make<QComboBox>(this, QStringLiteral("cmbUpDown"));
    bnUp = makeButton(this, QStringLiteral("bnUp"));
    bnUp->setIcon(style()->standardIcon(QStyle::SP_ArrowUp));
    bnDown = makeButton(this, QStringLiteral("bnDown"));
    bnDown->setIcon(style()->standardIcon(QStyle::SP_ArrowDown));
    bnAddType = makeButton(this, QStringLiteral("bnAddType"));

    GroupBox1 = make<QGroupBox>(this, QStringLiteral("GroupBox1"));
    GroupBox1->installEventFilter(this);
    picBox = make<QLabel>(GroupBox1, QStringLiteral("picBox"));
    picBox->setAlignment(Qt::AlignCenter);
    imNoImage = mIcons::NoPhotoPicture(QSize(120, 150));
    bnSelectPhoto = makeButton(this, QStringLiteral("bnSelectPhoto"));
    bnDeletePhoto = makeButton(this, QStringLiteral("bnDeletePhoto"));

    chContactCardWithTabs = make<QCheckBox>(this, QStringLiteral("chContactCardWithTabs"));
    bnOK = makeButton(this, QStringLiteral("bnOK"));
    bnOK->setDefault(true);
    bnCancel = makeButton(this, QStringLiteral("bnCancel"));

    wireEvents();
}

CardForm::~CardForm() = default;

const char* CardForm::Place(const char* procedure) {
    std::string& place = m_places[procedure];
    if (place.empty()) place = (FormName() + QLatin1Char('.') + QLatin1String(procedure)).toStdString();
    return place.c_str();
}

template <class F> void CardForm::onEvent(const char* procedure, F body) {
    RunEvent(Place(procedure), body);
}

void CardForm::wireEvents() {
    auto click = [this](QAbstractButton* button, const char* procedure, void (CardForm::*handler)()) {
        connect(button, &QAbstractButton::clicked, this,
                [this, procedure, handler] { onEvent(procedure, [this, handler] { (this->*handler)(); }); });
    };
    click(bnOK, "bnOK_Click", &CardForm::bnOK_Click);
    click(bnCancel, "bnCancel_Click", &CardForm::bnCancel_Click);
    click(bnUp, "bnUp_Click", &CardForm::bnUp_Click);
    click(bnDown, "bnDown_Click", &CardForm::bnDown_Click);
    click(bnClearFavorite, "bnClearFavorite_Click", &CardForm::bnClearFavorite_Click);
    click(bnAddCategory, "bnAddCategory_Click", &CardForm::bnAddCategory_Click);
    click(bnAddBox, "bnAddBox_Click", &CardForm::bnAddBox_Click);
    click(bnAddFavorite, "bnAddFavorite_Click", &CardForm::bnAddFavorite_Click);
    click(bnCommentMaximize, "bnCommentMaximize_Click", &CardForm::bnCommentMaximize_Click);
    click(bnCommentMinimize, "bnCommentMinimize_Click", &CardForm::bnCommentMinimize_Click);
    click(chWordWrap, "chWordWrap_Click", &CardForm::chWordWrap_Click);
    click(bnAddType, "bnAddType_Click", &CardForm::bnAddType_Click);
    click(bnSelectPhoto, "bnSelectPhoto_Click", &CardForm::bnSelectPhoto_Click);
    click(bnDeletePhoto, "bnDeletePhoto_Click", &CardForm::bnDeletePhoto_Click);
    for (int n = 1; n <= kRows; ++n) {
        connect(bnCleareType[n], &QToolButton::clicked, this,
                [this, n] { onEvent("bnCleareType_Click", [this, n] { bnCleareType_Click(n); }); });
    }
    connect(icmbCategory, &ImageCombo::Click, this,
            [this] { onEvent("icmbCategory_Click", [this] { icmbCategory_Click(); }); });
    connect(icmbBox, &ImageCombo::Click, this,
            [this] { onEvent("icmbBox_Click", [this] { icmbBox_Click(); }); });
    connect(icmbFavorite, &ImageCombo::Click, this,
            [this] { onEvent("icmbFavorite_Click", [this] { icmbFavorite_Click(); }); });
    connect(fdFullName, &QLineEdit::textChanged, this,
            [this] { onEvent("fdFullName_Change", [this] { fdFullName_Change(); }); });
    connect(fdCompany, &QLineEdit::textChanged, this,
            [this] { onEvent("fdCompany_Change", [this] { fdCompany_Change(); }); });
}

// ---- Loading

void CardForm::Form_Load() {
    HUNT_PLACE(Place("Form_Load"), CardKey);
    if (mRegSettings::SettingNumber(
            setting(kPreferences, QStringLiteral("IncreasedComment"), QStringLiteral("0"))) <= 0)
        bnCommentMinimize_Click();
    else
        bnCommentMaximize_Click();
    chWordWrap->setChecked(mRegSettings::SettingBool(
        setting(kPreferences, QStringLiteral("CommentWordWrap"), QStringLiteral("1"))));
    chWordWrap_Click();
    chContactCardWithTabs->setText(msgOpenCardWithTabs);
    chContactCardWithTabs->setChecked(ContactCardWithTabs);

    setWindowTitle(CardKey.toLongLong() <= 0 ? msgAddContact : msgContactCard);
    lblFullName->setText(msgFullNameColon);
    lblTitle->setText(msgTitleColon);
    lblCompany->setText(msgCompanyColon);
    lblAddress->setText(msgAddressColon);
    lblCity->setText(msgCityColon);
    lblState->setText(msgStateProvColon);
    lblZip->setText(msgZipPostalCodeColon);
    lblComment->setText(msgCommentColon);
    lblIndex->setText(msgIndexColon);
    chWordWrap->setText(msgWordWrap);
    bnCommentMaximize->setText(msgIncrease);
    bnCommentMinimize->setText(msgDecrease);
    lblCategory->setText(msgCategoryColon);
    lblBox->setText(msgGroupColon);
    lblFavorite->setText(msgFavoritesColon2);
    for (QPushButton* add : {bnAddCategory, bnAddBox, bnAddFavorite})
        add->setText(msgNew);
    bnClearFavorite->setText(msgClearFavorites);
    for (int n = 1; n <= kRows; ++n)
        bnCleareType[n]->setToolTip(msgClear);
    bnUp->setToolTip(msgMoveUp);
    bnDown->setToolTip(msgMoveDown);
    bnAddType->setText(msgAddEditType);
    bnSelectPhoto->setText(msgSelectPhoto + QStringLiteral("..."));
    bnDeletePhoto->setText(msgClear);
    bnOK->setText(msgOK);
    bnCancel->setText(msgCancel);

    RestorePlace();
    mRegSettings::ApplyPreferenceFont(this);

    // The combos show the images of the main window's trees.
    if (!ImageList::Shared().Exists(QStringLiteral("CAT"))) mIcons::RegisterImages(ImageList::Shared());
    FillCatCombo();
    FillFavCombo();
    FillBoxCombo();
    FillTypeCombo();

    if (CardKey.toLongLong() <= 0)
        loadNewContact();
    else
        loadContact();

    cmbUpDown->clear();
    for (int n = 1; n <= kRows; ++n)
        cmbUpDown->addItem(QString::number(n));
    cmbUpDown->setCurrentIndex(0);
    applyRestrictions();
    CardLoaded = true;
}

// A new contact starts where the last new contact went.
void CardForm::loadNewContact() {
    picImage = imNoImage;
    ResizePhotoInProperties();
    bool found = false;
    QString key = setting(kContactCard, QStringLiteral("PreviousCategory"), kOthers);
    ScanTypeIsExists(key, 1, found);
    mCard::SelectKey(*icmbCategory, found ? key : kOthers);
    found = false;
    key = setting(kContactCard, QStringLiteral("PreviousBox"), kOthers);
    ScanTypeIsExists(key, 2, found);
    mCard::SelectKey(*icmbBox, found ? key : kOthers);
    found = false;
    key = setting(kContactCard, QStringLiteral("PreviousFavorites"), QString());
    if (!key.isEmpty()) ScanTypeIsExists(key, 3, found);
    if (found)
        mCard::SelectKey(*icmbFavorite, key);
    else
        icmbFavorite->SetText(QString());
}

void CardForm::loadContact() {
    dao::Recordset rs = gDB.OpenRecordset(QStringLiteral("Select * From CDs Where IDCD = ") + CardKey);
    if (rs.AtEOF()) throw dao::DbError(dao::errNoCurrentRecord, QStringLiteral("No current record."));
    auto text = [&rs](const char* field) { return rs[QLatin1String(field)].toString(); };
    fdFullName->setText(text("FullName"));
    fdTitle->setText(text("Title"));
    fdCompany->setText(text("Company"));
    fdAddress->setPlainText(text("Address"));
    fdCity->setText(text("City"));
    fdState->setText(text("State"));
    fdZip->setText(text("Zip"));
    fdComment->setPlainText(text("Comment"));
    for (int n = 1; n <= kRows; ++n) {
        const QVariant type = rs[QStringLiteral("Type%1").arg(n)];
        if (!type.isNull()) mCard::SelectKey(*icType[n], QLatin1String("ID") + type.toString());
    }
    for (int n = 1; n <= kRows; ++n)
        fdNumber[n]->setText(rs[QStringLiteral("Number%1").arg(n)].toString());
    // Long texts show from their start.
    for (QLineEdit* field : findChildren<QLineEdit*>())
        field->setCursorPosition(0);
    LoadPhotoFromDB(rs);

    // The letter and the three trees as stored.
    CardLetter = text("Label");
    OldDiskCat = NewDiskCat = QLatin1String("ID") + text("IDC");
    OldDiskBox = NewDiskBox = QLatin1String("ID") + text("IDX");
    const QVariant idb = rs[QStringLiteral("IDB")];
    if (!idb.isNull() && idb.toInt() != -1) OldDiskBor = NewDiskBor = QLatin1String("ID") + idb.toString();
    rs.Close();
    mCard::SelectKey(*icmbCategory, OldDiskCat);
    mCard::SelectKey(*icmbBox, OldDiskBox);
    if (OldDiskBor.isEmpty() || !mCard::SelectKey(*icmbFavorite, OldDiskBor))
        icmbFavorite->SetText(QString());
}

void CardForm::applyRestrictions() {
    if (!gRestricted) return;
    for (QWidget* w : std::initializer_list<QWidget*>{bnOK, bnAddCategory, bnAddFavorite, bnAddType,
                                                      bnSelectPhoto, bnDeletePhoto})
        w->setEnabled(false);
}

// ---- The combos

ImageCombo* CardForm::treeCombo(qint16 mode) const {
    return mode == 0 ? icmbCategory : mode == 1 ? icmbBox : icmbFavorite;
}

void CardForm::fillTreeCombo(qint16 mode) {
    mTV::CategoryFill(mTV::TreeForm{*CatTree, false}, mode);
    treeCombo(mode)->ComboItems.Clear();
    if (const TreeNode* root = CatTree->Nodes(kRoot); root && root->Child())
        FillImageCombo(*CatTree, root->Child(), 0, mode);
}

void CardForm::FillCatCombo() {
    HUNT_PLACE(Place("FillCatCombo"));
    fillTreeCombo(0);
}

void CardForm::FillBoxCombo() {
    HUNT_PLACE(Place("FillBoxCombo"));
    fillTreeCombo(1);
}

void CardForm::FillFavCombo() {
    HUNT_PLACE(Place("FillFavCombo"));
    fillTreeCombo(2);
}

void CardForm::FillImageCombo(const TreeView&, const TreeNode* ParentNode, int pIntent, qint16 mode) {
    HUNT_PLACE(Place("FillImageCombo"), pIntent, mode);
    const QString image = mode == 0   ? QStringLiteral("CAT")
                          : mode == 1 ? QStringLiteral("BOX")
                                      : QStringLiteral("STAR");
    mCard::AddTreeEntries(*treeCombo(mode), ParentNode, pIntent, image);
}

void CardForm::FillTypeCombo() {
    HUNT_PLACE(Place("FillTypeCombo"));
    std::array<QString, kRows + 1> chosen;
    for (int n = 1; n <= kRows; ++n) {
        chosen[size_t(n)] = mCard::SelectedKey(*icType[n]);
        icType[n]->ComboItems.Clear();
    }
    dao::Recordset rs = gDB.OpenRecordset(QStringLiteral("SELECT * From Types"), dao::dbOpenSnapshot);
    const int id = rs.FieldIndex(QStringLiteral("IDTYPE"));
    const int type = rs.FieldIndex(QStringLiteral("Type"));
    for (; !rs.AtEOF(); rs.MoveNext()) {
        const QString key = QLatin1String("ID") + rs.Text(id);
        for (int n = 1; n <= kRows; ++n)
            icType[n]->ComboItems.Add(key, rs.Text(type));
    }
    rs.Close();
    for (int n = 1; n <= kRows; ++n)
        mCard::SelectKey(*icType[n], chosen[size_t(n)]);
}

void CardForm::ScanTypeIsExists(const QString& Key, int Kind, bool& Found) const {
    const ImageCombo* combo = Kind == 1   ? icmbCategory
                              : Kind == 2 ? icmbBox
                              : Kind == 3 ? icmbFavorite
                                          : nullptr;
    if (combo && combo->ComboItems.Exists(Key)) Found = true;
}

void CardForm::icmbCategory_Click() {
    NewDiskCat = mCard::SelectedKey(*icmbCategory);
}

void CardForm::icmbBox_Click() {
    NewDiskBox = mCard::SelectedKey(*icmbBox);
}

void CardForm::icmbFavorite_Click() {
    NewDiskBor = mCard::SelectedKey(*icmbFavorite);
}

void CardForm::bnClearFavorite_Click() {
    NewDiskBor.clear();
    icmbFavorite->SetText(QString());
}

void CardForm::bnAddCategory_Click() {
    HUNT_PLACE(Place("bnAddCategory_Click"));
    addNodeFromCard(0);
}

void CardForm::bnAddBox_Click() {
    HUNT_PLACE(Place("bnAddBox_Click"));
    addNodeFromCard(1);
}

void CardForm::bnAddFavorite_Click() {
    HUNT_PLACE(Place("bnAddFavorite_Click"));
    addNodeFromCard(2);
}

// The node chooser of the combo's tree: a node added there is in the phonebook at once, so the
// combo is refilled, and the node chosen there becomes the contact's.
void CardForm::addNodeFromCard(qint16 mode) {
    Form14 frm(mode, this);
    ShowModal(&frm, this);
    bool& flag = mode == 0 ? AddCat : mode == 1 ? AddBox : AddBor;
    const bool added = mode == 0 ? frm.AddCat : mode == 1 ? frm.AddBox : frm.AddBor;
    ImageCombo& combo = *treeCombo(mode);
    if (added) {
        flag = true;
        const QString chosen = mCard::SelectedKey(combo);
        fillTreeCombo(mode);
        mCard::SelectKey(combo, chosen);
    }
    if (!frm.ComboKey.isEmpty()) {
        QString& newKey = mode == 0 ? NewDiskCat : mode == 1 ? NewDiskBox : NewDiskBor;
        newKey = frm.ComboKey;
        mCard::SelectKey(combo, newKey);
    }
}

// ---- Name, letter, numbers, comment

void CardForm::UpdatelbLetter() {
    lbLetter->setText(mCard::LetterCaption(fdFullName->text(), fdCompany->text()));
}

void CardForm::fdFullName_Change() {
    UpdatelbLetter();
}

void CardForm::fdCompany_Change() {
    UpdatelbLetter();
}

void CardForm::bnCleareType_Click(int Index) {
    if (Index < 1 || Index > kRows) return;
    icType[Index]->SetText(QString());
    fdNumber[Index]->clear();
}

void CardForm::bnUp_Click() {
    HUNT_PLACE(Place("bnUp_Click"));
    moveRow(-1);
}

void CardForm::bnDown_Click() {
    HUNT_PLACE(Place("bnDown_Click"));
    moveRow(1);
}

// Carries the row that cmbUpDown names one place up (-1) or down (+1), with its type, and
// follows it with cmbUpDown; at the first or last row only its number is marked.
void CardForm::moveRow(int step) {
    auto mark = [](QLineEdit* field) {
        field->setFocus();
        field->setCursorPosition(0);
        field->selectAll();
    };
    const int edge = step > 0 ? kRows : 1;
    if (cmbUpDown->currentIndex() == edge - 1) {
        mark(fdNumber[edge]);
        return;
    }
    const int from = cmbUpDown->currentText().toInt();
    const int to = from + step;
    if (from < 1 || from > kRows) return;
    cmbUpDown->setCurrentIndex(cmbUpDown->currentIndex() + step);
    const QString number = fdNumber[from]->text();
    fdNumber[from]->setText(fdNumber[to]->text());
    fdNumber[to]->setText(number);
    mark(fdNumber[to]);
    const QString type = mCard::SelectedKey(*icType[from]);
    if (!mCard::SelectKey(*icType[from], mCard::SelectedKey(*icType[to]))) icType[from]->SetText(QString());
    if (!mCard::SelectKey(*icType[to], type)) icType[to]->SetText(QString());
}

void CardForm::bnCommentMaximize_Click() {
    HUNT_PLACE(Place("bnCommentMaximize_Click"));
    bnCommentMaximize->hide();
    bnCommentMinimize->show();
    chWordWrap->show();
    ShowCommentLarge(true);
    SaveSetting(AppTitle(), kPreferences, QStringLiteral("IncreasedComment"), 1);
}

void CardForm::bnCommentMinimize_Click() {
    HUNT_PLACE(Place("bnCommentMinimize_Click"));
    bnCommentMinimize->hide();
    bnCommentMaximize->show();
    chWordWrap->hide();
    ShowCommentLarge(false);
    SaveSetting(AppTitle(), kPreferences, QStringLiteral("IncreasedComment"), 0);
}

void CardForm::chWordWrap_Click() {
    HUNT_PLACE(Place("chWordWrap_Click"));
    const bool wrap = chWordWrap->isChecked();
    fdComment->setLineWrapMode(wrap ? QPlainTextEdit::WidgetWidth : QPlainTextEdit::NoWrap);
    fdComment->setHorizontalScrollBarPolicy(wrap ? Qt::ScrollBarAlwaysOff : Qt::ScrollBarAsNeeded);
    SaveSetting(AppTitle(), kPreferences, QStringLiteral("CommentWordWrap"), wrap);
}

void CardForm::bnAddType_Click() {
    HUNT_PLACE(Place("bnAddType_Click"));
    Form19 frm(this, this);
    ShowModal(&frm, this);
    FillTypeCombo();
}

// ---- OK and Cancel

void CardForm::bnOK_Click() {
    if ((mCard::Trim(fdFullName->text()) + mCard::Trim(fdCompany->text())).isEmpty()) {
        MsgBox(msgPleaseEnterANameOrACompany, vb::vbOKOnly, vb::vbExclamation, AppTitle());
        ShowFirstPage();
        fdFullName->setFocus();
        return;
    }
    // What the steps below change on the card, to be put back when they fail.
    const QString key = CardKey, letter = CardLetter, oldLetter = OldCardLetter;
    const bool adding = CardKey == QLatin1String("0");
    auto restore = [&] {
        // The transaction is rolled back; the card stays open with what the user typed, as a new
        // contact again if it was one, and without a list row for the contact not written.
        if (const auto view = mTV::MainWindowView(); adding && view && CardKey != key)
            view->ListView2.ListItems.Remove(QLatin1String("ID") + CardKey);
        CardKey = key;
        CardLetter = letter;
        OldCardLetter = oldLetter;
    };
    try {
        dao::Transaction trans(gWS);
        if (!adding) {
            UpdateRecord(false);
            UpdateDriveList();
            const auto view = mTV::MainWindowView();
            if (view && view->ListView2.SelectedItem() && view->ListView2.Tag() == CardKey)
                mTV::SelectNode(view->ListView1, QLatin1String("ID") + CardKey);
        } else {
            NewDiskCat = mCard::SelectedKey(*icmbCategory);
            NewDiskBox = mCard::SelectedKey(*icmbBox);
            if (icmbFavorite->SelectedItem()) NewDiskBor = mCard::SelectedKey(*icmbFavorite);
            UpdateRecord(true);
            if (const auto& hook = mCard::Hooks().UpdateMainCatTree) hook(AddCat, AddBor, AddBox);
            if (const auto view = mTV::MainWindowView())
                mLV::AddDriveList(view->ListView2, view->CatTree, NewDiskCat, NewDiskBor, NewDiskBox, true,
                                  CardKey.toInt());
        }
        trans.Commit();
        if (adding) {
            // The next new contact starts where this one went.
            ListNeedsClickReset = true;
            SaveSetting(AppTitle(), kContactCard, QStringLiteral("PreviousCategory"), NewDiskCat);
            SaveSetting(AppTitle(), kContactCard, QStringLiteral("PreviousBox"), NewDiskBox);
            SaveSetting(AppTitle(), kContactCard, QStringLiteral("PreviousFavorites"), NewDiskBor);
        }
    } catch (const HuntERR::Error& e) {
        // The report adds this place to the error's stack.
        restore();
        HuntERR::Report(e, Place("bnOK_Click"));
        return;
    } catch (const std::exception& e) {
        restore();
        HuntERR::ReportForeign(e, Place("bnOK_Click"));
        return;
    }
    saveLayoutChoice();
    done(QDialog::Accepted);
}

void CardForm::bnCancel_Click() {
    HUNT_PLACE(Place("bnCancel_Click"));
    // Nodes made from the card stay, whatever happens to the contact.
    if (const auto& hook = mCard::Hooks().UpdateMainCatTree) hook(AddCat, AddBor, AddBox);
    if (const auto view = mTV::MainWindowView()) mLV::AddMissingCatRecords(view->ListView2, view->CatTree);
    saveLayoutChoice();
    done(QDialog::Rejected);
}

void CardForm::reject() {
    onEvent("bnCancel_Click", [this] { bnCancel_Click(); });
}

void CardForm::saveLayoutChoice() {
    ContactCardWithTabs = chContactCardWithTabs->isChecked();
    SaveSetting(AppTitle(), kPreferences, QStringLiteral("ContactCardWithTabs"), ContactCardWithTabs);
}

void CardForm::BeforeUnload() {
    PutCommentHome();
}

// ---- Saving

void CardForm::UpdateRecord(bool pAdd) {
    HUNT_PLACE(Place("UpdateRecord"), pAdd);
    dao::Recordset rs;
    if (pAdd) {
        const qint32 id = mCard::NextContactID();
        rs = gDB.OpenRecordset(QStringLiteral("Select * From CDs WHERE IDCD = -1"));
        const QString number = mCommon::GetMaxNumber();
        rs.AddNew();
        rs.SetValue(QStringLiteral("IDCD"), id);
        CardKey = QString::number(id);
        rs.SetValue(QStringLiteral("ContactNumber"), number.toLongLong());
        rs.SetValue(QStringLiteral("IDC"), 1);
        rs.SetValue(QStringLiteral("IDX"), 1);
    } else {
        rs = gDB.OpenRecordset(QStringLiteral("Select * From CDs WHERE IDCD = ") + CardKey);
        rs.Edit();
    }
    mCard::CardFields fields;
    fields.Label = mCard::LabelOfCaption(lbLetter->text());
    fields.FullName = mCard::TextOrNull(fdFullName->text());
    fields.Title = mCard::TextOrNull(fdTitle->text());
    fields.Company = mCard::TextOrNull(fdCompany->text());
    fields.Address = mCard::TextOrNull(fdAddress->toPlainText());
    fields.City = mCard::TextOrNull(fdCity->text());
    fields.State = mCard::TextOrNull(fdState->text());
    fields.Zip = mCard::TextOrNull(fdZip->text());
    fields.Comment = mCard::TextOrNull(fdComment->toPlainText());
    for (int n = 1; n <= kRows; ++n) {
        const QString type = mCard::SelectedKey(*icType[n]);
        fields.Type[size_t(n)] = type.isEmpty() ? QVariant() : QVariant(mCommon::GetID1(type));
        fields.Number[size_t(n)] = mCard::TextOrNull(fdNumber[n]->text());
    }
    mCard::WriteCardFields(rs, fields);
    SavePhotoToDB(rs);
    rs.Update();
    rs.Close();
}

// After an edit: the list row is rewritten where the view in force still shows the contact; the
// change of its trees and letter is handed on to the assignment update, which moves the row.
void CardForm::UpdateDriveList() {
    HUNT_PLACE(Place("UpdateDriveList"));
    const qint16 tab = mToolBar::WhatCATIsChecked();
    // Only the name counts here, so a contact filed under its company always counts as changed.
    const QString nameLetter = mCard::LabelOfCaption(mCard::LetterCaption(fdFullName->text(), QString()));
    if (nameLetter != CardLetter) {
        OldCardLetter = CardLetter;
        CardLetter = nameLetter;
    }
    if (const auto view = mTV::MainWindowView()) {
        const TreeView& tree = view->CatTree;
        auto within = [&tree](const QString& key, qint16 mode) {
            return mLV::IsWithinCategory2(tree, key, mode);
        };
        const TreeNode* selected = tree.SelectedItem();
        const bool atRoot = (selected ? selected->Key() : CurrentNodeKey) == kRoot;
        const bool filtered = CurrentLetter != QLatin1String("ALL") &&
                              (CardLetter != CurrentLetter || !OldCardLetter.isEmpty());
        bool refresh = false;
        if (!filtered) {
            switch (tab) {
            case 0:
                refresh = atRoot || (within(OldDiskCat, 0) && within(NewDiskCat, 0));
                break;
            case 2:
                refresh = atRoot ? !OldDiskBor.isEmpty() && !NewDiskBor.isEmpty()
                                 : within(OldDiskBor, 2) && within(NewDiskBor, 2);
                break;
            default:
                refresh = atRoot || (within(OldDiskBox, 1) && within(NewDiskBox, 1));
                break;
            }
        }
        if (refresh) CommentAndNameUpdate();
    }
    if (const auto& hook = mCard::Hooks().UpdateMainCatTree) hook(AddCat, AddBor, AddBox);
    if (const auto view = mTV::MainWindowView()) mLV::AddMissingCatRecords(view->ListView2, view->CatTree);
    if (const auto& hook = mCard::Hooks().UpdateGlobalInfo)
        hook(CardLetter, OldCardLetter.isEmpty() ? CardLetter : OldCardLetter, OldDiskCat, NewDiskCat,
             OldDiskBor, NewDiskBor, OldDiskBox, NewDiskBox, CardKey.toInt());
}

void CardForm::CommentAndNameUpdate() {
    HUNT_PLACE(Place("CommentAndNameUpdate"));
    const auto view = mTV::MainWindowView();
    ListItem* row = view ? view->ListView2.ListItems(QLatin1String("ID") + CardKey) : nullptr;
    if (!row) throw HuntERR::Error(35601, QStringLiteral("Element not found."));
    // The tree cells show the paths, as everywhere in the list.
    auto path = [](const QString& key, qint16 mode) {
        return key.isEmpty() ? QString() : mTV::GetCBName(mCommon::GetID1(key), mode);
    };
    mCard::CardRowTexts texts;
    texts.FullName = mCard::Trim(fdFullName->text());
    texts.Title = mCard::Trim(fdTitle->text());
    texts.Company = mCard::Trim(fdCompany->text());
    texts.Category = path(mCard::SelectedKey(*icmbCategory), 0);
    texts.Favorite = path(mCard::SelectedKey(*icmbFavorite), 2);
    texts.Address = mCard::Trim(fdAddress->toPlainText());
    texts.City = mCard::Trim(fdCity->text());
    texts.State = mCard::Trim(fdState->text());
    texts.Zip = mCard::Trim(fdZip->text());
    texts.Comment = mCard::Trim(fdComment->toPlainText());
    texts.Box = path(mCard::SelectedKey(*icmbBox), 1);
    for (int n = 1; n <= kRows; ++n) {
        texts.TypeText[size_t(n)] = icType[n]->Text();
        texts.Number[size_t(n)] = mCard::Trim(fdNumber[n]->text());
    }
    mCard::WriteContactRow(*row, texts);
}

// ---- The photo page

void CardForm::ResizePhotoInProperties() {
    const QRect frame = GroupBox1->contentsRect();
    const QPixmap shown = mPhoto::FitPhoto(picImage, frame.size());
    if (shown.isNull()) {
        picBox->clear();
        return;
    }
    // The photo stands centred in its frame.
    const QSize size = shown.size();
    picBox->setPixmap(shown);
    picBox->setGeometry(QRect(frame.x() + (frame.width() - size.width()) / 2,
                              frame.y() + (frame.height() - size.height()) / 2, size.width(), size.height()));
}

void CardForm::LoadPhotoFromDB(const dao::Recordset& rstWork) {
    HUNT_PLACE(Place("LoadPhotoFromDB"));
    const mCard::StoredPhoto read = mCard::LoadStoredPhoto(rstWork, picImage, imNoImage);
    if (read == mCard::StoredPhoto::NotRead) return;
    // A stored photo counts as kept even when it cannot be shown, so that saving leaves it.
    if (read == mCard::StoredPhoto::Stored) PhotoState = 2;
    ResizePhotoInProperties();
}

void CardForm::bnSelectPhoto_Click() {
    HUNT_PLACE(Place("bnSelectPhoto_Click"));
    CFileDialog dialog;
    dialog.Title = msgSelectPhoto;
    dialog.Mask = msgAllSupportedFiles +
                  QStringLiteral(" (*.bmp; *.jpg; *.jpeg; *.gif; *.png)|*.bmp;*.jpg;*.jpeg;*.gif;*.png|") +
                  msgBitmapFiles + QStringLiteral(" (*.bmp)|*.bmp|") + msgJPEG +
                  QStringLiteral(" (*.jpg; *.jpeg)|*.jpg;*.jpeg|") + msgGIF +
                  QStringLiteral(" (*.gif)|*.gif|") + msgPNG + QStringLiteral(" (*.png)|*.png");
    dialog.Owner = this;
    const QString before = PhotoPath;
    PhotoPath = dialog.Show(false) ? dialog.FileName : QString();
    // A cancelled choice keeps the photo shown and PhotoState; only the path is gone.
    if (PhotoPath.isEmpty()) return;
    if (QFileInfo(PhotoPath).size() > mPhotoStore::kMaxPhotoFile) {
        PhotoPath = before;
        MsgBox(msgMaximumFileSize500Kb, vb::vbOKOnly, vb::vbExclamation);
        return;
    }
    QPixmap picture;
    if (!mPhoto::LoadPicture(PhotoPath, picture)) {
        const QString chosen = PhotoPath;
        PhotoPath = before;
        throw HuntERR::Error(481, QStringLiteral("Invalid picture: ") + chosen);
    }
    picImage = picture;
    ResizePhotoInProperties();
    PhotoState = 1;
}

void CardForm::bnDeletePhoto_Click() {
    HUNT_PLACE(Place("bnDeletePhoto_Click"));
    PhotoPath.clear();
    PhotoState = 0;
    picImage = imNoImage;
    ResizePhotoInProperties();
}

void CardForm::SavePhotoToDB(dao::Recordset& rstWork) {
    HUNT_PLACE(Place("SavePhotoToDB"), PhotoState);
    if (PhotoState == 0) {
        rstWork.SetValue(QStringLiteral("Photo"), QVariant());
        rstWork.SetValue(QStringLiteral("PhotoExt"), QVariant());
        rstWork.SetValue(QStringLiteral("PhotoSize"), QVariant());
        return;
    }
    // A stored photo that was not changed stays as it is.
    if (PhotoState != 1) return;
    if (PhotoPath.isEmpty())
        throw HuntERR::Error(75, QStringLiteral("Path/File access error: no photo file."));
    QFile file(PhotoPath);
    if (!file.open(QIODevice::ReadOnly))
        throw HuntERR::Error(file.exists() ? 75 : 53,
                             (file.exists() ? QStringLiteral("Path/File access error: ")
                                            : QStringLiteral("File not found: ")) +
                                 PhotoPath);
    const qint64 length = file.size();
    rstWork.SetValue(QStringLiteral("PhotoExt"), mCommon::Spliting2(QFileInfo(PhotoPath).fileName(), -1));
    rstWork.SetValue(QStringLiteral("PhotoSize"), double(length));
    // The window keeps painting between the blocks; what the user types waits for the save.
    rstWork.AppendChunk(QStringLiteral("Photo"), mPhotoStore::StoredPhotoBytes(file, length, [] {
                            QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
                        }));
    file.close();
}

bool CardForm::eventFilter(QObject* watched, QEvent* event) {
    if (watched == GroupBox1 && event->type() == QEvent::Resize) ResizePhotoInProperties();
    return QDialog::eventFilter(watched, event);
}
