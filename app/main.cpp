// annotra: reviews how well the C# and Visual Basic code of a solution is commented.

#include <CLI/CLI.hpp>
#include <iostream>
#include <string>

#include "AnalyzeCommand.h"
#include "CodemodelCommand.h"
#include "PaneCommand.h"
#include "Host.h"
#include "ShowCommand.h"
#include "SolutionCommand.h"
#include "TemplatesCommand.h"
#include "Version.h"

int main(int argc, char** argv) {
  CLI::App cli{"annotra: reviews how well the C# and Visual Basic .NET code of a solution is commented"};
  cli.require_subcommand(1);
  cli.set_version_flag("--version", std::string("annotra ") + app::kVersion);

  app::AnalyzeRequest analyzeRequest;
  auto* analyze = app::AddAnalyzeCommand(cli, analyzeRequest);

  app::ShowRequest showRequest;
  auto* show = app::AddShowCommand(cli, showRequest);

  std::string solutionPath;
  std::string panePath;
  auto* pane = cli.add_subcommand(
      "pane", "Review the comments on the terminal: the results pane, the options dialog and the code of each finding");
  pane->add_option("PATH", panePath, "A .sln, .slnx, .csproj, .vbproj, folder or source file (default: the current folder)");

  auto* solution = cli.add_subcommand("solution", "Show the solution as the walk sees it: projects, folders, items and their languages");
  solution->add_option("PATH", solutionPath, "A .sln, .slnx, .csproj, .vbproj, folder or source file")->required();

  std::string codemodelPath;
  auto* codemodel = cli.add_subcommand("codemodel", "Print the code model of every C# and VB file as JSON lines");
  codemodel->add_option("PATH", codemodelPath, "A .sln, .slnx, .csproj, .vbproj, folder or source file")->required();

  std::vector<std::string> templateArgs;
  auto* templates = cli.add_subcommand(
      "templates", "Read and edit the XML comment templates: list | show KIND | enable KIND | disable KIND | set KIND TEXT");
  templates->add_option("ARGS", templateArgs, "The operation and its arguments")->required();

  try {
    cli.parse(argc, argv);
  } catch (const CLI::ParseError& e) {
    int status = cli.exit(e);
    return status == 0 ? app::kDone : app::kUsage;
  }

  if (*analyze) return app::RunAnalyzeCommand(analyzeRequest, std::cout);
  if (*show) return app::RunShowCommand(showRequest, std::cout);
  if (*pane) return app::RunPaneCommand(panePath);
  if (*solution) return app::RunSolutionCommand(solutionPath, std::cout);
  if (*codemodel) return app::RunCodemodelCommand(codemodelPath, std::cout);
  if (*templates) return app::RunTemplatesCommand(templateArgs, std::cout, std::cerr);
  return app::kUsage;
}
