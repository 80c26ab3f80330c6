#pragma once
// The decimal separator of the user's locale for the numbers the user types.

namespace morvane {

// Lets the number conversion read the decimal separator of Qt's default locale (the
// user's, unless set otherwise) as the point. Written numbers keep the point.
void UseLocaleDecimalSeparator();

}  // namespace morvane
