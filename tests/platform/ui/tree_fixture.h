#pragma once

#include <string>

#include "platform/core/base/text.h"
#include "platform/ui/virtual_tree.h"

namespace qx::test {

// A node payload like the designer's: a caption, and whether it groups others.
struct TTextData : TNodeDataBase {
  TTextData(std::string caption, bool folder) : Caption(std::move(caption)), Folder(folder) {}
  std::string Caption;
  bool Folder;
};

// A tree set up as the asset tree is: two columns, folders before the rest,
// then ordinal order of the captions.
class TTreeFixture {
public:
  TTreeFixture() {
    Tree.Header.Columns = {{"Name", 162, TAlignment::taLeftJustify, true},
                           {"Info", 85, TAlignment::taCenter, false}};
    Tree.DefaultNodeHeight = 32;
    Tree.MultiSelect = true;
    Tree.Editable = true;
    Tree.OnGetText = [](TVirtualTree* t, TVirtualNode* n, int column, std::string& text) {
      auto* data = t->GetNodeData<TTextData>(n);
      if (column == 0) text = data->Caption;
      if (column == 1) text = data->Folder ? "" : "info";
    };
    Tree.OnCompareNodes = [](TVirtualTree* t, TVirtualNode* a, TVirtualNode* b, int, int& result) {
      auto* da = t->GetNodeData<TTextData>(a);
      auto* db = t->GetNodeData<TTextData>(b);
      if (da->Folder != db->Folder) {
        result = da->Folder ? -1 : 1;
      } else {
        result = CompareStr(da->Caption, db->Caption);
      }
    };
  }

  TVirtualNode* Add(TVirtualNode* parent, const std::string& caption, bool folder = false) {
    return Tree.AddChild(parent, std::make_unique<TTextData>(caption, folder));
  }
  std::string Caption(TVirtualNode* node) { return Tree.GetText(node, 0); }
  // Captions of the children of node, joined by spaces.
  std::string Children(TVirtualNode* node) {
    std::string out;
    for (auto* child : Tree.ChildNodes(node)) out += (out.empty() ? "" : " ") + Caption(child);
    return out;
  }
  std::string Captions(const std::vector<TVirtualNode*>& nodes) {
    std::string out;
    for (auto* n : nodes) out += (out.empty() ? "" : " ") + Caption(n);
    return out;
  }

  TVirtualTree Tree;
};

}  // namespace qx::test
