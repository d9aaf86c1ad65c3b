// The component on a real connection, as errands see it.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "host/Database.h"
#include "payslate/clspayslate.h"
#include "platform/scripted/Stage.h"

namespace payslate::host {

/// A component on this desktop and connection with the session handed over.
clspayslate makeComponent(ui::Desktop& desktop, const SharedConnection& connection,
                          const scripted::HostSession& session);

/// Statements of the errand and statements of the component run on the same connection; only the component's
/// are counted.
class ComponentStage : public scripted::Stage {
 public:
  /// `folder` is where relative paths of the errand start.
  ComponentStage(ui::Desktop& desktop, SharedConnection connection, std::string folder);
  ~ComponentStage() override;
  ComponentStage(const ComponentStage&) = delete;
  ComponentStage& operator=(const ComponentStage&) = delete;

  void runFile(const std::string& path) override;
  void runStatement(const std::string& statement) override;
  std::vector<std::vector<basic::Value>> rows(const std::string& statement) override;
  void setSession(const scripted::HostSession& session) override { session_ = session; }
  void show() override;
  long takeSentCount() override;

  /// Told of every statement that the component sends, before it is sent.
  std::function<void(std::string_view statement)> StatementSent;

 private:
  ui::Desktop* desktop_;
  SharedConnection connection_;
  std::string folder_;
  scripted::HostSession session_;
  long sent_ = 0;
  bool countsStatements_ = true;
};

}  // namespace payslate::host
