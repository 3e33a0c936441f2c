// The search for the styles from which objects, transforms and styles inherit.
#pragma once

#include "vantry/plot/framework/element.h"

namespace vantry::plot {

/// The first ObjStyle with the type `key` and a local value of `name`, in the containers around
/// `start`, from the inside out. Null if there is none.
const PlotElement* findObjStyle(const dom::Node& start, Token key, Token name);

/// Adds every ObjStyle with the type `key` in the containers around `start`: the nearest level
/// first, in document order within a level.
void collectObjStyles(const dom::Node& start, Token key, StyleChain& chain);

/// What an element of the type `key` inherits from: first the styles of that type, then those of
/// the type Default.
const PlotElement* findTypedStyle(const dom::Node& start, Token key, Token name);
void collectTypedStyles(const dom::Node& start, Token key, StyleChain& chain);

/// The same without styles that cannot be found, since others of their type that are nearer have
/// all of their attributes. After a search near by, the cost does not grow with the number of
/// containers.
void collectEffectiveTypedStyles(const dom::Node& start, Token key, StyleChain& chain);

}  // namespace vantry::plot
