#pragma once

#include <string>
#include <vector>

#include "platform/core/vector/vector_command.h"

namespace qx::test {

// One line per command, short enough to compare whole documents at a glance:
// "{" and "}" for groups, "path <data>", "brush" with its colours,
// "fill gradient <id>" or "stroke gradient <id>", and "transform".
inline std::vector<std::string> Outline(const TqxVectorCommands& commands) {
  std::vector<std::string> lines;
  for (const auto& command : commands) {
    switch (command->Kind) {
      case TqxVectorCommandKind::BeginGroup: lines.push_back("{"); break;
      case TqxVectorCommandKind::EndGroup: lines.push_back("}"); break;
      case TqxVectorCommandKind::DrawPath: lines.push_back("path " + command->Path); break;
      case TqxVectorCommandKind::SetTransform: lines.push_back("transform"); break;
      case TqxVectorCommandKind::SetGradient:
        lines.push_back(std::string(command->IsFill ? "fill" : "stroke") + " gradient " + command->Gradient->ID);
        break;
      case TqxVectorCommandKind::SetBrush: {
        std::string line = "brush";
        if (command->Brush.Fill.HasValue()) line += " fill=" + command->Brush.Fill.Value();
        if (command->Brush.Stroke.HasValue()) line += " stroke=" + command->Brush.Stroke.Value();
        lines.push_back(line);
        break;
      }
    }
  }
  return lines;
}

inline std::string SvgDataFile(const std::string& name) { return std::string(QX_TEST_DATA_DIR) + "/svg/" + name; }

}  // namespace qx::test
