#pragma once

#include <string>
#include <vector>

/// The test's side of its spreadsheet server: registers it as "Excel.Application" while this lives.
class Server {
 public:
  Server();
  ~Server();
  Server(const Server&) = delete;
  Server& operator=(const Server&) = delete;

  /// False outside of Wine, where there may be a real application that must keep its registration.
  static bool IsAllowed();

  /// What the next application is told to do: "fail 3", "sheets 1".
  void SetPlan(const std::string& plan);

  /// The record of the last application, after it has ended; empty when it does not.
  std::vector<std::string> Record() const;

  void Unregister();
};
