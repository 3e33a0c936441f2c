// The node: what everything in a document tree has in common.
#pragma once

#include <cstdint>
#include <iosfwd>

#include "vantry/base/ref_counted.h"
#include "vantry/base/token.h"

namespace vantry::dom {

using base::Ref;
using base::Token;

class Document;
class DocumentFragment;
class Element;
class InnerNode;
class NewChildren;
class Text;

/// A class of nodes, known by the address of this object. A model that casts nodes has one for each
/// of its classes: a name proves nothing, since anybody can make a node of any name.
struct NodeClass {
  const NodeClass* model;  ///< one and the same for all classes of a model
  Token name;              ///< the name of the nodes of this class
};

/// A node of a document tree.
///
/// A parent owns its first child and each child the sibling that follows, so the owner of a node
/// owns the whole run of siblings behind it; parent and previous sibling are plain back pointers. A
/// node that outlives its parent, because somebody else holds it, has no parent from then on.
///
/// A new node is in no tree. Whoever asked for it holds it in a Ref until a parent has taken it.
///
/// Every change of a node that is in its document (see isInDocument()) runs through an operation of
/// the document, which can take it back and notifies the observers. Other nodes change directly.
class Node : public base::RefCounted<base::IResource> {
 public:
  enum Type : int {
    ElementNode = 1,
    TextNode = 3,
    DocumentNode = 9,
    DocumentFragmentNode = 11,
    RangeNode = 1000,
    RangeListNode = 1001,
  };

  ~Node() override;

  /// The document that the node was made for; it may be put into no other. Not dangling even when
  /// that document was given up long ago, see Document. A document is its own owner.
  Document* ownerDocument() const { return ownerDocument_; }

  InnerNode* parent() const { return parent_; }
  Node* nextSibling() const { return nextSibling_.get(); }
  Node* previousSibling() const { return previousSibling_; }
  virtual Node* firstChild() const = 0;
  virtual Node* lastChild() const = 0;

  /// A new node in no tree with the same values; with `deep` it has copies of all descendants.
  /// A class copies its own fields in its copy constructor and the rest by cloneChildrenInto().
  virtual Ref<Node> cloneNode(bool deep) const = 0;

  virtual int nodeType() const = 0;
  virtual Token nodeName() const = 0;
  /// The class of its model that the node can be cast to; null for a node of no model.
  virtual const NodeClass* nodeClass() const { return nullptr; }

  /// The number of children, or of bytes of a text. Children are counted by walking.
  virtual unsigned length() const = 0;

  /// This node as what it is, null if it is something else.
  virtual Element* asElement() { return nullptr; }
  virtual Text* asText() { return nullptr; }
  virtual DocumentFragment* asDocumentFragment() { return nullptr; }
  const Element* asElement() const { return const_cast<Node*>(this)->asElement(); }
  const Text* asText() const { return const_cast<Node*>(this)->asText(); }
  const DocumentFragment* asDocumentFragment() const {
    return const_cast<Node*>(this)->asDocumentFragment();
  }

  /// The text of a text node, null for an empty one and for all other nodes.
  virtual const char* nodeValue() const { return nullptr; }
  /// Replaces the text of a text node; does nothing for all other nodes.
  virtual void setNodeValue(const char* text);
  /// Whether this is a text that takes this change, see Text::replaceData().
  virtual bool canReplaceText(unsigned offset, unsigned count, const char* text) const;

  /// Calls onAttached() for this node and all below it, in document order. Changes of nodes in the
  /// document do so by themselves. To be called after the root element was put in, which is no
  /// recorded change. It is one change, in which what has left the document is passed over.
  void attachedToDocument();

  /// Writes the node with all below it as XML, and returns the stream. Throws
  /// base::BadUnicodeString for a text that the locale cannot hold.
  virtual std::ostream& writeXml(std::ostream& out) const = 0;

  /// A read-only node refuses every change with NoModificationAllowed.
  virtual bool isReadOnly() const { return false; }

  /// Whether the node takes this change of its children. What it refuses ends in HierarchyRequest.
  /// Nothing has moved yet: a new child may still have another parent, or be a child of this node
  /// that is to change its place.
  virtual bool canReplaceChildren(Node* first, unsigned count, NewChildren newChildren) const = 0;

  /// Does what replaceChildren() has checked, without checks, record or events.
  virtual void doReplaceChildren(Node* first, unsigned count, Node* newChildren) = 0;

  /// Replaces `count` children from `first` on by `newChildren`, a node in no tree with all
  /// siblings behind it. A null `first` stands for the end of the list; with count 0 nothing is
  /// taken out. Throws DomException NotFound (`first` is no child of this node), WrongDocument,
  /// NoModificationAllowed or HierarchyRequest (refused by canReplaceChildren(); or a new child is
  /// a document, a fragment or a range, is in a tree already, holds this node, or is of a class
  /// that the document does not know).
  void replaceChildren(Node* first, unsigned count, Node* newChildren);

  /// The following put a node in, after taking it out of the place that it had before; a fragment
  /// stands for its children, and is empty and used up afterwards. A null `newChild` puts nothing
  /// in. They raise what removeChild() of the former parent raises, and replaceChildren() of this
  /// one, before anything has changed. A move within the document is two changes; deferred
  /// operations wait for both. The first two return the first node put in.
  Node* appendChild(Node* newChild);
  /// A null `refChild` means append.
  Node* insertBefore(Node* newChild, Node* refChild);
  /// Returns `oldChild`. A null `oldChild` means append.
  Ref<Node> replaceChild(Node* newChild, Node* oldChild);

  /// Takes `child` out and returns it; null does nothing. Raises what replaceChildren() raises.
  Ref<Node> removeChild(Node* child);

  /// The first child with this node name, or null.
  virtual Node* firstChildByName(Token name) const;
  /// Null past the end.
  Node* childAt(unsigned index) const;
  /// The number of siblings before this node.
  unsigned indexInParent() const;

  /// Whether the node is the document's first child or below that. The document itself is not.
  bool isInDocument() const { return hasFlag(InDocument); }

  /// Appends deep copies of all children to `target`, without checks, record or events.
  void cloneChildrenInto(Node& target) const;

 protected:
  /// Called for this one node after it has come into the document, alone or as part of a subtree.
  /// The parent's call comes before those of its children.
  virtual void onAttached() {}

  explicit Node(Document* owner);
  /// A new node in no tree, of the same document.
  Node(const Node& other);

  /// Bits 1 to 14 of the flags are free for derived classes.
  bool hasFlag(unsigned bit) const { return (flags_ >> bit & 1U) != 0; }
  void setFlag(unsigned bit, bool value);

 private:
  friend class Document;
  friend class InnerNode;
  friend class NodeRun;
  friend class Text;
  friend Node* commonAncestor(Node* a, Node* b);

  enum Flag : unsigned { AncestorMark = 0, InDocument = 15 };

  void checkReplaceChildren(Node* first, unsigned count, NewChildren newChildren) const;
  void performReplaceChildren(Node* first, unsigned count, NewChildren newChildren);

  // Put in a node that may be in a tree, one that is, and the children of a fragment.
  Node* putIn(Node* first, unsigned count, Node* newChild);
  void moveIn(Node* first, unsigned count, Node& newChild);
  Node* putChildrenIn(Node* first, unsigned count, DocumentFragment& fragment);

  // All links between siblings are made and cut, and all parents set, by these three. A slot is the
  // place that owns a chain: the `nextSibling_` of the node before it or its parent's first child.
  static void link(Ref<Node>& slot, Node* before, Ref<Node> chain);
  static Ref<Node> cut(Ref<Node>& slot);
  static void setParents(Node* chain, InnerNode* parent);

  /// Brings the mark that isInDocument() reads up to date in a whole subtree.
  void markInDocument(bool inDocument);

  std::uint16_t flags_ = 0;
  Document* ownerDocument_;
  InnerNode* parent_ = nullptr;
  Ref<Node> nextSibling_;
  Node* previousSibling_ = nullptr;
};

// 8 virtual table, 4 reference count, 2 flags (and 2 free), 8 each for owner, parent and siblings.
static_assert(sizeof(void*) != 8 || sizeof(Node) == 48);

/// The nodes that a change of children puts in.
class NewChildren {
 public:
  /// A node with all siblings behind it; null for none.
  NewChildren(Node* first) : first_(first) {}
  /// A single node, whatever siblings it has at its present place.
  static NewChildren only(Node& node) { return {&node, true}; }

  Node* first() const { return first_; }
  bool isSingle() const { return isSingle_; }
  explicit operator bool() const { return first_ != nullptr; }
  unsigned count() const;
  /// Whether this is a child of `parent` that is to get another place there.
  bool isMovedWithin(const Node& parent) const;

  class Iterator {
   public:
    Iterator(Node* node, bool isSingle) : node_(node), isSingle_(isSingle) {}
    Node& operator*() const { return *node_; }
    void operator++() { node_ = isSingle_ ? nullptr : node_->nextSibling(); }
    bool operator!=(const Iterator& other) const { return node_ != other.node_; }

   private:
    Node* node_;
    bool isSingle_;
  };
  Iterator begin() const { return {first_, isSingle_}; }
  Iterator end() const { return {nullptr, isSingle_}; }

 private:
  NewChildren(Node* first, bool isSingle) : first_(first), isSingle_(isSingle) {}

  Node* first_;
  bool isSingle_ = false;
};

/// The number of nodes from `node` to the end of its siblings, 0 for null.
unsigned countSiblingsFrom(const Node* node);

/// The innermost node that holds both, where each node holds itself; null for separate trees.
Node* commonAncestor(Node* a, Node* b);

/// Whether `node` is `top` or below it. Costs no more than the smaller of two numbers: of the nodes
/// below `top`, and of the ancestors of `node`.
bool isOrHolds(const Node& top, const Node& node);

}  // namespace vantry::dom
