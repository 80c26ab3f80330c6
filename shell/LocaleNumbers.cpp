#include "shell/LocaleNumbers.h"

#include <QLocale>

#include "core/NumberText.h"

namespace morvane {

void UseLocaleDecimalSeparator() {
    SetTypedDecimalSeparator(QLocale().decimalPoint().toStdString());
}

}  // namespace morvane
