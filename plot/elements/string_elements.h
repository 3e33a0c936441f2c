// The titles and captions of a drawing.
#pragma once

#include "vantry/plot/framework/text_element.h"

namespace vantry::plot {

using base::WordId;

using Header = ElementNamed<WordId::Header, StringElement>;
using Footer = ElementNamed<WordId::Footer, StringElement>;
using Title = ElementNamed<WordId::Title, StringElement>;
using LegendText = ElementNamed<WordId::LegendText, StringElement>;
using XAxisTitle = ElementNamed<WordId::XAxisTitle, StringElement>;
using YAxisTitle = ElementNamed<WordId::YAxisTitle, StringElement>;
using ZAxisTitle = ElementNamed<WordId::ZAxisTitle, StringElement>;

}  // namespace vantry::plot
