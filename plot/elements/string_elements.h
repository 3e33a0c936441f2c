// The titles and captions of a drawing.
#pragma once

#include "vantry/plot/framework/text_content.h"

namespace vantry::plot {

using base::WordId;

using Header = NameOnly<WordId::Header, StringElement>;
using Footer = NameOnly<WordId::Footer, StringElement>;
using Title = NameOnly<WordId::Title, StringElement>;
using LegendText = NameOnly<WordId::LegendText, StringElement>;
using XAxisTitle = NameOnly<WordId::XAxisTitle, StringElement>;
using YAxisTitle = NameOnly<WordId::YAxisTitle, StringElement>;
using ZAxisTitle = NameOnly<WordId::ZAxisTitle, StringElement>;

}  // namespace vantry::plot
