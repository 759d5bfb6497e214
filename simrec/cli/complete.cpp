// simrec complete WORD...: what a shell may offer for the last word of a call, a line each with
// a remark behind a tab. For the completion scripts beside this file; no help tells of it.
#include <algorithm>

#include "simrec/cli/command.h"
#include "simrec/cli/output.h"
#include "simrec/error.h"
#include "simrec/overview.h"
#include "simrec/text.h"

namespace simrec::cli {
namespace {

bool isOption(std::string_view word) { return word.size() > 1 && word[0] == '-'; }

bool startsWith(const std::string& word, const std::string& begin) {
  return word.compare(0, begin.size(), begin) == 0;
}

bool takesValue(const CLI::Option& option) { return option.get_items_expected_max() > 0; }

/// Follows a call word by word, as far as it matters for the word that comes next.
class Call {
 public:
  explicit Call(const CLI::App& app) : app_(app), command_(&app) {}

  void pass(const std::string& word) {
    if (pending_ != nullptr) {
      setValue(*pending_, word);
      if (--wanted_ == 0) pending_ = nullptr;
    } else if (isOption(word)) {
      passOption(word);
    } else if (command_ == &app_) {
      const auto commands =
          app_.get_subcommands([&](auto* each) { return each->check_name(word); });
      if (!commands.empty()) command_ = commands.front();
    } else {
      ++positionals_;
    }
  }

  void offer(const std::string& begin) const {
    const std::size_t equals = begin.find('=');
    if (pending_ != nullptr) {
      offerValues(*pending_, begin, "");
    } else if (isOption(begin) && equals != std::string::npos) {
      const CLI::Option* const option = optionNamed(begin.substr(0, equals));
      if (option == nullptr) return;
      offerValues(*option, begin.substr(equals + 1), begin.substr(0, equals + 1));
    } else if (!begin.empty() && begin[0] == '-') {
      offerOptions(*command_, begin);
      if (command_ != &app_) offerOptions(app_, begin);
    } else if (command_ == &app_) {
      offerCommands(begin);
    } else {
      offerPositional(begin);
    }
  }

 private:
  static void put(const std::string& word, const std::string& begin, const std::string& remark) {
    if (startsWith(word, begin)) print("{}\t{}\n", word, remark.substr(0, remark.find('\n')));
  }

  const CLI::Option* optionNamed(const std::string& name) const {
    const CLI::Option* const own = command_->get_option_no_throw(name);
    return own != nullptr ? own : app_.get_option_no_throw(name);
  }

  void passOption(const std::string& word) {
    const std::size_t equals = word.find('=');
    const CLI::Option* const option = optionNamed(word.substr(0, equals));
    if (option == nullptr || !takesValue(*option)) return;
    if (equals == std::string::npos) {
      pending_ = option;
      wanted_ = option->get_items_expected_max();
    } else {
      setValue(*option, word.substr(equals + 1));
    }
  }

  void setValue(const CLI::Option& option, const std::string& value) {
    if (option.check_name("--data")) shared_.data = value;
  }

  static void offerOptions(const CLI::App& command, const std::string& begin) {
    for (const CLI::Option* const option : command.get_options()) {
      if (option->get_group().empty()) continue;
      for (const std::string& name : option->get_snames()) {
        put("-" + name, begin, option->get_description());
      }
      for (const std::string& name : option->get_lnames()) {
        put("--" + name, begin, option->get_description());
      }
    }
  }

  /// Of a choice, or captures; other values are nobody's to guess.
  void offerValues(const CLI::Option& option, const std::string& begin,
                   const std::string& before) const {
    const std::string choice = option.get_type_name();
    if (choice == "A B") return offerCaptures(begin);
    if (choice.find('|') == std::string::npos) return;
    for (const std::string& value : CLI::detail::split(choice, '|')) {
      put(before + value, before + begin, "");
    }
  }

  void offerCommands(const std::string& begin) const {
    for (const CLI::App* const command : app_.get_subcommands([](auto*) { return true; })) {
      put(command->get_name(), begin, command->get_description());
    }
  }

  /// Names that fit in a line as they are and are taken for no option; others are to be typed.
  void offerCaptures(const std::string& begin) const {
    for (const Capture& capture : shared_.store().captures()) {
      const std::string& name = capture.name;
      const bool fits = startsWith(name, begin) && name[0] != '-' && printable(name) == name;
      if (fits && looksLikeCapture(capture)) put(name, begin, nameOf(capture.kind));
    }
  }

  /// By their names; also by what stands behind the family, where that was begun and is enough.
  static void offerKinds(const std::string& begin) {
    for (const catalogue::Kind& kind : catalogue::kinds()) {
      put(kind.name, begin, kind.content);
      const std::string name = kind.name, tail = name.substr(name.find('_') + 1);
      const bool own = tail != name && catalogue::kindsLike(tail).size() == 1;
      if (own && !begin.empty()) put(tail, begin, kind.content);
    }
  }

  void offerPositional(const std::string& begin) const {
    int left = positionals_;
    for (const CLI::Option* const option : command_->get_options()) {
      if (!option->get_positional()) continue;
      const int most = option->get_items_expected_max();
      if (left >= most) {
        left -= most;
        continue;
      }
      const std::string name = option->get_name(true);
      if (name == "COMMAND") return offerCommands(begin);
      if (name == "KIND") return offerKinds(begin);
      if (name == "CAPTURE" || name == "A" || name == "B" || name == "DUMP") {
        return offerCaptures(begin);
      }
      return;
    }
  }

  const CLI::App& app_;
  const CLI::App* command_;
  const CLI::Option* pending_ = nullptr;  // waits for its values
  int wanted_ = 0;                        // so many of them
  int positionals_ = 0;
  Shared shared_;
};

}  // namespace

Status complete(const CLI::App& app, const std::vector<std::string>& words) {
  Call call(app);
  for (std::size_t i = 0; i + 1 < words.size(); ++i) call.pass(words[i]);
  try {
    call.offer(words.empty() ? "" : words.back());
  } catch (const Error&) {
    // No data folder: nothing to offer.
  }
  return kDone;
}

}  // namespace simrec::cli
