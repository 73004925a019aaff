#include "app/window/localeDates.h"

#include <QDate>
#include <QLocale>

#include "geo/monthNames.h"

namespace kestrin::window {

geo::MonthNames LocaleDates::AbbreviatedMonths() { return geo::UserMonthNames(); }

std::string LocaleDates::ShortDate(std::chrono::year_month_day date) {
  const QLocale locale = QLocale::system();
  QString format = locale.dateFormat(QLocale::ShortFormat);
  if (!format.contains("yyyy")) format.replace("yy", "yyyy");
  const QDate day(static_cast<int>(date.year()), static_cast<int>(unsigned{date.month()}),
                  static_cast<int>(unsigned{date.day()}));
  return locale.toString(day, format).toStdString();
}

}  // namespace kestrin::window
