#pragma once

#include <string>
#include <vector>

/// The place of one column keyword in a format.
struct FormatItem {
  std::string Name;   ///< the column keyword
  std::string Order;  ///< zero-based position as decimal text, kept as it was read; "-1" means not present.
                      ///< For "Ignore" a list of positions, each followed by a comma.
};

/// How the columns of an assembly file are laid out. A plain value: a copy is deep.
struct OptionForm {
  std::string Name;             ///< unique in a list; compared exactly
  int StartLine = 0;            ///< 1-based line of the header row; 1 or less means the first line
  std::string Delimiters;       ///< delimiter names ("Tab,Comma,"), searched as substrings
  std::string OtherDelimiters;  ///< the characters that "Other" stands for
  int Qualifier = 0;            ///< 0 double quote, 1 single quote, 2 none
  bool TreatAsOne = false;      ///< consecutive delimiters count as one
  std::string PartKey;          ///< "Name": parts are identified by name only
  std::vector<FormatItem> Items;
};
