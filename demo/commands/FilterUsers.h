// Who answers the dialogs in a console: a user with a script, and one who is asked.
#pragma once

#include <functional>
#include <iosfwd>
#include <optional>
#include <string>

#include "demo/console/Console.h"
#include "fetchkit/dialogs/FormView.h"
#include "fetchkit/dialogs/frmFilter.h"
#include "fetchkit/dialogs/frmFilterColumn.h"
#include "fetchkit/dialogs/frmMultiChoose.h"

namespace fetchkit::demo {

// Sets a period by its keyword, two departments through the chooser and an amount, mistyped first,
// each act told in a line; columns that the list lacks are left out.
class ScriptedUser : public FormView {
 public:
  explicit ScriptedUser(Console& console) : console_(console) {}

  void ShowModal(frmFilter& form, std::int32_t hWndOwner) override;
  void ShowModal(frmFilterColumn& form, const frmFilter& owner) override;
  void ShowModal(frmMultiChoose& form, std::int32_t hWndOwner) override;

 private:
  bool Open(frmFilter& form, TextView caption);
  void Pick(frmFilter& form, TextView text);
  void Value(frmFilter& form, TextView value);

  Console& console_;
};

// Questions and answers, line by line, by the rules of the dialogs: "f" and a text searches, by
// initials, too, and an empty line takes what is found, or is OK when nothing is looked for. "q"
// cancels the dialog at any question, and the end of the input whatever is open.
class AskedUser : public FormView {
 public:
  // in must outlive the object.
  AskedUser(Console& console, std::istream& in) : console_(console), in_(in) {}

  void ShowModal(frmFilter& form, std::int32_t hWndOwner) override;
  void ShowModal(frmFilterColumn& form, const frmFilter& owner) override;
  void ShowModal(frmMultiChoose& form, std::int32_t hWndOwner) override;

 private:
  struct Answer {
    std::string word;           // the line without a number at its end, trimmed
    std::optional<int> number;  // counted from 1
    bool searched = false;      // it concerned the search and has taken effect
    bool taken = false;         // what was found first has been taken
  };

  std::optional<std::string> Line(const std::string& question);
  std::optional<std::string> Part(const std::string& question);
  std::optional<Answer> Ask(const std::string& question, SearchBox& search);
  void ShowCounts(const TwoListForm& form);
  bool Obey(frmFilter& form, const Answer& answer);
  bool Edit(frmFilter& form);
  bool PickRow(PickCombo& picker);
  bool TypeInto(frmFilter& form, TextBox& box, const std::string& name);
  bool TypeDate(DateSpinner& date, const std::string& name);

  Console& console_;
  std::istream& in_;
};

}  // namespace fetchkit::demo
