#include <Utility/frame/font_names.h>

namespace Torvo {

// The font by system charset, under the charset's number + 1; 0 ends the table. The two rows of numbers are stored unit
// for unit as they always were: they are the bytes of two Asian names seen through a Western character set.
cStringTable::sStringTable fontNames[FontNameRows] = {
    {1, ZUTEXT("Helvetica")},
    {2, ZUTEXT("Helvetica")},
    {3, ZUTEXT("Helvetica")},
    {4, ZUTEXT("Helvetica")},
    {5, ZUTEXT("Helvetica")},
    {6, ZUTEXT("Helvetica")},
    {7, ZUTEXT("Helvetica")},
    {8, ZUTEXT("Helvetica")},
    {9, ZUTEXT("Helvetica")},
    {10, ZUTEXT("Helvetica")},
    {11, ZUTEXT("Arial")},
    {12, ZUTEXT("Arial CE")},
    {13, ZUTEXT("Arial")},
    {14, ZUTEXT("Arial Cyr")},
    {15, ZUTEXT("Arial")},
    {16, ZUTEXT("Miriam")},
    {17, ZUTEXT("Arial")},
    {18, ZUTEXT("Arial")},
    {19, ZUTEXT("Arial")},
    {20, ZUTEXT("\u00C3\u00AC\u00C3\u00B2\u0020\u00D6\u00BE\u00D2\u00A9")},
    {21, ZUTEXT("\u00DA\u2122\u00C6\u0081\u00C3\u00BC")},
    {22, ZUTEXT("Helvetica")},
    {23, ZUTEXT("Helvetica")},
    {24, ZUTEXT("Helvetica")},
    {25, ZUTEXT("Helvetica")},
    {26, ZUTEXT("Helvetica")},
    {27, ZUTEXT("Helvetica")},
    {28, ZUTEXT("Helvetica")},
    {29, ZUTEXT("Helvetica")},
    {30, ZUTEXT("Helvetica")},
    {31, ZUTEXT("Helvetica")},
    {32, ZUTEXT("Helvetica")},
    {33, ZUTEXT("Helvetica")},
    {34, ZUTEXT("Helvetica")},
    {35, ZUTEXT("Trad. Chinese")},
    {36, ZUTEXT("Simple Chinese")},
    {37, ZUTEXT("Japanese")},
    {38, ZUTEXT("Korean")},
    {39, ZUTEXT("Browallia New")},
    {40, ZUTEXT("Arial")},
    {41, ZUTEXT("Arial")},
    {0, nullptr},
};

}  // namespace Torvo
