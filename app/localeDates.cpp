#include "app/localeDates.h"

#include <QDate>
#include <QLocale>

namespace kestrin {

MonthNames LocaleDates::AbbreviatedMonths() {
  const QLocale locale = QLocale::system();
  MonthNames names;
  int month = 0;
  for (std::string& name : names) {
    // The stand-alone form: the other one ends in a dot in many languages.
    name = locale.standaloneMonthName(++month, QLocale::ShortFormat).toStdString();
  }
  return names;
}

std::string LocaleDates::ShortDate(std::chrono::year_month_day date) {
  const QLocale locale = QLocale::system();
  QString format = locale.dateFormat(QLocale::ShortFormat);
  if (!format.contains("yyyy")) format.replace("yy", "yyyy");
  const QDate day(static_cast<int>(date.year()), static_cast<int>(unsigned{date.month()}),
                  static_cast<int>(unsigned{date.day()}));
  return locale.toString(day, format).toStdString();
}

}  // namespace kestrin
