#include "workbook/automation/Conversation.h"

#include <fstream>

namespace server {

Plan Plan::Read(const std::filesystem::path& program) {
  Plan plan;
  std::ifstream file(FileBeside(program, ".plan"));
  for (std::string word; file >> word;) {
    long number = 0;
    file >> number;
    if (word == "client") plan.client = static_cast<unsigned long>(number);
    if (word == "fail") plan.fail = number;
    if (word == "busy") plan.busy = number;
    if (word == "times") plan.times = number;
    if (word == "sheets") plan.sheets = number;
    if (word == "formats") plan.formats = number;
  }
  return plan;
}

Conversation::Conversation(const std::filesystem::path& program)
    : plan_(Plan::Read(program)), log_(FileBeside(program, ".log")) {
  std::ofstream(log_, std::ios::trunc);
}

HRESULT Conversation::Call(const std::string& line) {
  if (calls_ + 1 == plan_.busy && plan_.times > 0) {
    --plan_.times;
    return RPC_E_CALL_REJECTED;
  }
  Write(line);
  return ++calls_ == plan_.fail ? E_FAIL : S_OK;
}

void Conversation::Write(const std::string& line) { std::ofstream(log_, std::ios::app) << line << std::endl; }

}  // namespace server
