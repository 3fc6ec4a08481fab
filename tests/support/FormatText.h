#pragma once

#include "format/FormatConfiguration.h"
#include "format/OptionForm.h"

#include <sstream>
#include <string>
#include <vector>

/// Items from a readable line: "PartName=0 Ignore=1,3, Customer".
inline std::vector<FormatItem> ItemsOf(const std::string& line) {
  std::vector<FormatItem> items;
  std::istringstream words(line);
  for (std::string word; words >> word;) {
    const std::size_t equals = word.find('=');
    const bool isColumn = equals != std::string::npos;
    items.push_back({word.substr(0, equals), isColumn ? word.substr(equals + 1) : "-1"});
  }
  return items;
}

/// The same line, only with the items that are columns.
inline std::string ColumnsOf(const OptionForm& form) {
  std::string line;
  for (const FormatItem& item : form.Items)
    if (item.Order != "-1") line += (line.empty() ? "" : " ") + item.Name + "=" + item.Order;
  return line;
}

inline std::string Joined(const std::vector<std::string>& words) {
  std::string line;
  for (const std::string& word : words) line += (line.empty() ? "" : " ") + word;
  return line;
}

/// A format file with the formats given as attributes and item elements, as a person would write it.
inline std::string FormatFile(const std::string& current, const std::string& formats) {
  return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<CSVOptionSetting Current=\"" + current + "\">" +
         formats + "</CSVOptionSetting>\n";
}

inline std::string FormatElement(
    const std::string& name, const std::string& columns,
    const std::string& attributes = R"(Line="2" Delimiters="Tab,Comma" Other="" Qualifier="0" Part="Name")") {
  std::string element = "<OptionForm Name=\"" + name + "\" " + attributes + ">";
  for (const FormatItem& item : ItemsOf(columns))
    element += "<" + item.Name + " Order=\"" + item.Order + "\"/>";
  return element + "</OptionForm>";
}

/// The formats that a file holds now.
inline FormatList FormatsIn(const std::string& path) {
  FormatConfiguration configuration;
  LoadFromFile(configuration, path.c_str());
  return configuration.Formats.value_or(FormatList{});
}

/// A format in a line: "Name: line delimiters [other] qualifier part: columns".
inline std::string FormatLine(const OptionForm& form) {
  const std::string columns = ColumnsOf(form);
  return form.Name + ": " + std::to_string(form.StartLine) + " " + form.Delimiters + " [" +
         form.OtherDelimiters + "] " + std::to_string(form.Qualifier) + " " + form.PartKey + ":" +
         (columns.empty() ? "" : " ") + columns;
}
