#include "ShowCommand.h"

#include <CLI/CLI.hpp>
#include <cstdio>
#include <filesystem>
#include <iostream>

#include "Component.h"
#include "ExitStatus.h"
#include "FindingFiles.h"
#include "FindingSource.h"
#include "FindingsWriter.h"
#include "Host.h"
#include "RunOutput.h"
#include "Version.h"
#include "host/MGlobals.h"
#include "platform/automation/DTE.h"
#include "platform/core/Error.h"
#include "platform/dao/Workspace.h"
#include "platform/suite/MemorySettingsStore.h"
#include "results/MGlobals_ResultsDb.h"

namespace app {

namespace fs = std::filesystem;

namespace {

int Usage(const std::string& message) {
  std::fprintf(stderr, "annotra show: %s\n", message.c_str());
  return kUsage;
}

int Fail(int status, const std::string& message) {
  std::fprintf(stderr, "annotra: %s\n", message.c_str());
  return status;
}

}  // namespace

CLI::App* AddShowCommand(CLI::App& cli, ShowRequest& r) {
  auto* cmd = cli.add_subcommand("show", "Print the findings of a result file (.xmm) as the pane's load command shows them");
  cmd->add_option("FILE", r.file, "A result file saved by the pane or by analyze --save")->required();
  cmd->add_option("--format", r.format, "Output format: " + OutputFormatNames() + " (default: table)")
      ->allow_extra_args(false);
  cmd->add_option("--output", r.output, "Write the output to FILE instead of standard output")->allow_extra_args(false);
  cmd->add_option("--solution", r.solution, "The solution the findings come from, to find their files")
      ->allow_extra_args(false);
  cmd->add_option("--source-root", r.sourceRoot, "The folder SARIF paths are relative to (default: the current folder)")
      ->allow_extra_args(false);
  return cmd;
}

int RunShowCommand(const ShowRequest& r, std::ostream& out) {
  OutputFormat format;
  if (!ParseOutputFormat(r.format, format)) return Usage("--format '" + r.format + "': expected one of " + OutputFormatNames());
  if (r.file.empty()) return Usage("FILE '': expected a result file");
  if (r.output && r.output->empty()) return Usage("--output '': expected a file to write");
  std::error_code ec;
  if (r.sourceRoot && !fs::is_directory(*r.sourceRoot, ec))
    return Usage("--source-root '" + *r.sourceRoot + "': expected a folder");
  if (r.output)
    if (std::string error = CheckFileFolder(*r.output, "the output"); !error.empty()) return Fail(kCannotRun, error);

  // Nothing of the user's is read or written: settings of the run's own.
  Host host(std::make_shared<platform::suite::MemorySettingsStore>(), std::make_shared<platform::suite::MemorySettingsStore>(true));
  platform::Ref<platform::automation::DTE> dte = std::make_shared<platform::automation::DTE>();
  if (r.solution) {
    if (!host.OpenSolution(*r.solution)) return kCannotLoad;
    dte = host.dte();
  }
  annotra::MGlobals::WorkspaceObject = std::make_shared<platform::dao::Workspace>();
  if (!fs::is_regular_file(r.file, ec))
    return Fail(kCannotLoad, "the result file <" + r.file + "> cannot be loaded: there is no such file");

  Component component;
  if (std::string error = component.Start(dte); !error.empty()) return Fail(kCannotRun, error);
  if (std::string error = component.Load(r.file); !error.empty())
    return Fail(kCannotLoad, "the result file <" + r.file + "> cannot be loaded: " + error);

  OutputContext context;
  context.currentFolder = fs::current_path(ec);
  context.sourceRoot = fs::absolute(r.sourceRoot.value_or("."), ec).lexically_normal();
  context.width = !r.output && &out == &std::cout ? TerminalWidth() : 0;
  context.version = kVersion;
  std::string error;
  try {
    FindingFiles files(dte);
    ResultsTableFindings table(annotra::MGlobals::XMLAnalyzerDb(), files);
    error = WriteRunOutput(out, r.output, table, format, context);
  } catch (const platform::Error& e) {
    error = "the findings cannot be read from the results database: " + e.description;
  }
  if (!error.empty()) return Fail(kCannotRun, error);
  return kDone;
}

}  // namespace app
