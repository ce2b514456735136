// annotra: reviews how well the C# and Visual Basic code of a solution is commented.

#include <CLI/CLI.hpp>
#include <iostream>
#include <string>

#include "CodemodelCommand.h"
#include "Host.h"
#include "SolutionCommand.h"

int main(int argc, char** argv) {
  CLI::App cli{"annotra: reviews how well the C# and Visual Basic .NET code of a solution is commented"};
  cli.require_subcommand(1);

  std::string solutionPath;
  auto* solution = cli.add_subcommand("solution", "Show the solution as the walk sees it: projects, folders, items and their languages");
  solution->add_option("PATH", solutionPath, "A .sln, .slnx, .csproj, .vbproj, folder or source file")->required();

  std::string codemodelPath;
  auto* codemodel = cli.add_subcommand("codemodel", "Print the code model of every C# and VB file as JSON lines");
  codemodel->add_option("PATH", codemodelPath, "A .sln, .slnx, .csproj, .vbproj, folder or source file")->required();

  try {
    cli.parse(argc, argv);
  } catch (const CLI::ParseError& e) {
    int status = cli.exit(e);
    return status == 0 ? app::kDone : app::kUsage;
  }

  if (*solution) return app::RunSolutionCommand(solutionPath, std::cout);
  if (*codemodel) return app::RunCodemodelCommand(codemodelPath, std::cout);
  return app::kUsage;
}
