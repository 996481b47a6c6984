#pragma once
// The arrangements of the card's controls that both layouts share: the general information with
// the trees, the number rows, the photo buttons and the buttons of the form.

class CardForm;
class QBoxLayout;
class QGridLayout;
class QLayout;

namespace mCard {

// Name, title, company, address, city, state and zip with the letter, then the comment (the
// box in `comment`, the tools under it in `commentTools`), then category, group and favorites.
QGridLayout* GeneralGrid(CardForm& card, QLayout* comment, QLayout* commentTools);
// The twelve number rows: number, type, number box, clear button.
QGridLayout* NumberGrid(CardForm& card);
// The row chooser with its two moves, and the type editor.
QBoxLayout* NumberTools(CardForm& card);
// Select photo and Clear, under the photo.
QBoxLayout* PhotoButtons(CardForm& card);
// The choice of layout at the left, OK and Cancel at the right.
QBoxLayout* FormButtons(CardForm& card);

// Heights of the comment box, short and enlarged, and of the address box, in pixels.
int ShortCommentHeight(const CardForm& card);
int LargeCommentHeight(const CardForm& card);

} // namespace mCard
