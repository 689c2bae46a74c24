#pragma once
// Questions about the names of the registers, GR0 to GR7.

#include "text/Text.h"

namespace tolvane {

// Whether the text begins with the name of a register from GR0 up to the digit `last`, which may be a digit that no
// register has.
template <class Ch> bool BeginsWithRegisterUpTo(View<Ch> text, char last) {
    return BeginsWith(text, "GR") && Ch('0') <= At(text, 2) && At(text, 2) <= Ch(last);
}
template <class Ch> bool BeginsWithRegister(View<Ch> text) {
    return BeginsWithRegisterUpTo(text, '7');
}
// The whole text is the name of a register.
template <class Ch> bool IsRegister(View<Ch> text) {
    return text.size() == 3 && BeginsWithRegister(text);
}
// The name ends there: at the end of the text, a blank or a tab.
template <class Ch> bool IsRegisterWordUpTo(View<Ch> text, char last) {
    return BeginsWithRegisterUpTo(text, last) && (At(text, 3) == Ch(0) || IsBlank(At(text, 3)));
}
template <class Ch> bool IsRegisterWord(View<Ch> text) {
    return IsRegisterWordUpTo(text, '7');
}
// The same, or at a comma.
template <class Ch> bool IsRegisterWordOrComma(View<Ch> text) {
    return IsRegisterWord(text) || (BeginsWithRegister(text) && At(text, 3) == Ch(','));
}
// GR8 or GR9, which are labels and no registers.
template <class Ch> bool BeginsWithGR89(View<Ch> text) {
    return BeginsWith(text, "GR8") || BeginsWith(text, "GR9");
}
// The digit of a text that begins with the name of a register.
template <class Ch> int RegisterDigit(View<Ch> text) {
    return At(text, 2) - Ch('0');
}

} // namespace tolvane
