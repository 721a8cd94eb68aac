// SPDX-License-Identifier: MIT
#include "preferences/fontfamilybox.h"

#include "compat/fonts.h"
#include "preferences/preferences.h"

namespace {

const int longestPopup = 20;
const int narrowest =
    20; // characters; names of families are cut short rather than the page widened

} // namespace

FontFamilyBox::FontFamilyBox(QWidget *parent) : QComboBox(parent)
{
    QStringList fixed;
    QStringList others;
    for (const QString &family : compat::fontFamilies())
        (compat::isFixedPitch(family) ? fixed : others) << family;
    for (const QString &family : fixed)
        addItem(family, family);
    insertSeparator(count());
    for (const QString &family : others)
        addItem(family, family);
    setMaxVisibleItems(longestPopup);
    setMinimumContentsLength(narrowest);
    setSizeAdjustPolicy(AdjustToMinimumContentsLengthWithIcon);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    connect(this, SIGNAL(currentIndexChanged(int)), SIGNAL(familyChanged()));
}

QString FontFamilyBox::family() const
{
    return itemData(currentIndex()).toString();
}

void FontFamilyBox::setFamily(const QString &family)
{
    const QString wanted = family.isEmpty() ? builtInFontFamily() : family;
    if (findData(wanted) < 0)
        insertItem(0, tr("%1 (not installed)").arg(wanted), wanted);
    setCurrentIndex(findData(wanted));
}
