#include "platform/codemodel/DeclarationTree.h"

#include <gtest/gtest.h>

#include <vector>

#include "platform/codemodel/CodeModelConstants.h"

namespace platform::codemodel {
namespace {

TEST(DeclarationTree, DeclarationsKeepTheirAddressesAndIndexes) {
  DeclarationTree tree("text");
  std::vector<const Declaration*> added;
  Declaration* ns = &tree.AddDeclaration(nullptr, vsCMElementNamespace);
  added.push_back(ns);
  // Enough to fill several chunks of storage.
  for (int i = 0; i < 500; ++i) {
    Declaration& c = tree.AddDeclaration(ns, vsCMElementClass);
    added.push_back(&c);
    added.push_back(&tree.AddAttribute(c));
  }
  ASSERT_EQ(tree.Size(), added.size());
  for (size_t i = 0; i < added.size(); ++i) {
    EXPECT_EQ(&tree.At(i), added[i]);
    EXPECT_EQ(tree.At(i).index, i);
  }
  EXPECT_EQ(tree.Text(), "text");
  ASSERT_EQ(tree.TopLevel().size(), 1u);
  ASSERT_EQ(ns->members.size(), 500u);
  const Declaration& last = *ns->members.back();
  EXPECT_EQ(last.parent, ns);
  ASSERT_EQ(last.attributes.size(), 1u);
  EXPECT_EQ(last.attributes[0]->kind, vsCMElementAttribute);
  EXPECT_EQ(last.attributes[0]->parent, &last);
  EXPECT_TRUE(last.attributes[0]->members.empty());

  // Moving the tree moves no declaration.
  DeclarationTree moved = std::move(tree);
  EXPECT_EQ(&moved.At(999), added[999]);
  EXPECT_EQ(moved.TopLevel()[0], ns);
}

TEST(Declaration, PrototypeIsTheTypeAndTheName) {
  Declaration d(vsCMElementFunction, nullptr, 0);
  d.name = "Run";
  d.prototypeType = "void";
  EXPECT_EQ(d.Prototype(true), "void Run");
  EXPECT_EQ(d.Prototype(false), "Run");
  d.prototypeType = "";  // a constructor: the name alone
  EXPECT_EQ(d.Prototype(true), "Run");
}

}  // namespace
}  // namespace platform::codemodel
