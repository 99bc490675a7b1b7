// Names of spreadsheet cells, and numbers as formulas hand them over. Without memory the empty
// text, False with the outputs untouched, or 0.
#pragma once

#include <cstdint>

#include "fetchkit/base/Text.h"
#include "fetchkit/base/Value.h"

namespace fetchkit {

class CellNames {
 public:
  // "$B$12" of "B12": the parts are cut at the first digit. The empty text when there is no digit,
  // nothing in front of it, or when what begins with it is no number. Wants plain names: a "$" that
  // is already there gets a second one.
  static Text CellNameToAbsolute(TextView strCellName);

  // Row 12 and column 2 of "B12"; letters count as A = 1 to Z = 26 in base 26, in either case.
  // False, and both outputs untouched, for anything but ASCII letters with digits behind them and
  // for a row or column beyond 32 bits.
  static bool CellNameToRowCol(TextView strCellName, std::int32_t& lngRow, std::int32_t& lngCol);

  // Whether strCell names one cell, behind a sheet name and "!" or not. strMsg says to the user why
  // not, and is empty otherwise.
  static bool CellIsValid(TextView strCell, Text& strMsg);

  // Column letters: 1 to 26 are A to Z, 27 is AA; empty below 1. From AN on, half of the columns
  // answer with the letter after the one that a spreadsheet shows (40 is BN, 52 is BZ), because the
  // group's number is rounded (halves to the even neighbour) instead of cut. Hosts count on these
  // names: the rounding stays.
  static Text CellColToString(std::int16_t intCol);

  // The number at the front of a text whose commas are taken out, rounded to 9 decimals, halves to
  // the even neighbour; a number is rounded as it is. 0 for Null, an empty text and what is neither
  // text nor number.
  static double C2Dbl(const Value& varText);

  // Rounded to that many decimals, halves upwards, those of negative numbers too. Half a unit is
  // added before the number is scaled, in doubles, so what lies a trace below the half in binary
  // goes down: 1.005 with 2 gives 1. 0 when the scaled number is beyond a double.
  static double FourLostFiveAdd(double dblValue, std::uint8_t bytNaturalCurDec);

  // The number format "#0." with intDec zeros; empty for intDec below 1.
  static Text FormatDec(std::int16_t intDec);
};

}  // namespace fetchkit
