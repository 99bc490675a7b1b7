#include <unicode/gregocal.h>

#include <ctime>
#include <memory>
#include <stdexcept>
#include <unordered_map>

#include "Pairs.h"
#include "fetchkit/activity/DateRanges.h"
#include "fetchkit/base/ThreadState.h"
#include "fetchkit/session/model/Session.h"

namespace fetchkit::bench {
namespace {

using Range = std::pair<double, double>;

Date ReferenceDay() {
  return DateFromYmd(2004, 3, 17).value();
}

Range OwnRange(TextView keyword, Date reference) {
  Date begin;
  Date end;
  if (!MActivity::GetBeginAndEndDate(MAction::CurrentSession(), keyword, reference, begin, end,
                                     false))
    throw std::runtime_error("no range");
  return {begin.serial, end.serial};
}

// Days since 1899-12-30 of a calendar that is set to midnight UTC.
double SerialOf(icu::Calendar& calendar, UErrorCode& error) {
  return calendar.getTime(error) / 86400000.0 + 25569;
}

Range IcuQuarter(icu::Calendar& calendar, Date reference) {
  UErrorCode error = U_ZERO_ERROR;
  calendar.setTime((reference.serial - 25569) * 86400000.0, error);
  calendar.set(UCAL_DAY_OF_MONTH, 1);
  calendar.set(UCAL_MONTH, calendar.get(UCAL_MONTH, error) / 3 * 3);
  const double begin = SerialOf(calendar, error);
  calendar.add(UCAL_MONTH, 3, error);
  calendar.add(UCAL_DAY_OF_MONTH, -1, error);
  return {begin, SerialOf(calendar, error)};
}

}  // namespace

void RegisterKeywords() {
  MAction::CurrentSession().LoginDate = u"2004-03-17";

  // The cache that a host would write around a slow function: one look-up by a joined key. The
  // library computes this word anew.
  auto cache = std::make_shared<std::unordered_map<Text, Range>>();
  const auto keyOf = [](TextView keyword, double serial) {
    return Join(keyword, u"$", static_cast<int>(serial), u"$", u"7$DBSRV$ACC01", u"$", 20);
  };
  const Range quarter = OwnRange(u"本季度", ReferenceDay());
  cache->emplace(keyOf(u"本季度", ReferenceDay().serial), quarter);
  Pair(
      "本季度, asked again", "std unordered_map, joined key",
      [] { return OwnRange(u"本季度", ReferenceDay()); },
      [cache, keyOf] { return cache->at(keyOf(u"本季度", ReferenceDay().serial)); });

  UErrorCode error = U_ZERO_ERROR;
  auto calendar = std::shared_ptr<icu::Calendar>(
      new icu::GregorianCalendar(*icu::TimeZone::getGMT(), icu::Locale::getRoot(), error));
  // A fresh session for every evaluation: the time holds its making and ending as well.
  Pair(
      "本季度, first time in a session", "ICU calendar",
      [] {
        ReleaseThread();
        return OwnRange(u"本季度", ReferenceDay());
      },
      [calendar] { return IcuQuarter(*calendar, ReferenceDay()); });
}

}  // namespace fetchkit::bench
