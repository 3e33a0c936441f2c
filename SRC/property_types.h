// The named types of properties: the words of each enumeration and the rules of each number.
#pragma once

#include <array>

#include "SRC/property_traits.h"
#include "base/vocabulary.h"

namespace PlotDom {

namespace Word = Ubase::Word;

// Enumerations.

// clang-format off
struct AnimationStyleType        : TokenTrait { static constexpr std::array allowed{Word::RunOnce, Word::Loop, Word::BackAndForth}; };
struct ArrowLengthType           : TokenTrait { static constexpr std::array allowed{Word::Fixed, Word::Proportional, Word::Logarithmic}; };
struct AxesType                  : TokenTrait { static constexpr std::array allowed{Word::Boxed, Word::Frame, Word::Origin, Word::Automatic, Word::None}; };
struct AxisTitleAlignmentType    : TokenTrait { static constexpr std::array allowed{Word::Begin, Word::Center, Word::End}; };
struct BackgroundStyleType       : TokenTrait { static constexpr std::array allowed{Word::Flat, Word::LeftRight, Word::TopBottom, Word::Pyramid}; };
struct ColorType                 : TokenTrait { static constexpr std::array allowed{Word::Flat, Word::Monochrome, Word::Dichromatic, Word::Rainbow, Word::Functional}; };
struct CoordinateType2dType      : TokenTrait { static constexpr std::array allowed{Word::LinLin, Word::LogLog, Word::LinLog, Word::LogLin}; };
struct ExtensionType             : TokenTrait { static constexpr std::array allowed{Word::Finite, Word::Infinite, Word::SemiInfinite}; };
struct FillPatternType           : TokenTrait { static constexpr std::array allowed{Word::Solid, Word::HorizontalLines, Word::VerticalLines, Word::DiagonalLines, Word::FDiagonalLines, Word::CrossedLines, Word::XCrossedLines}; };
struct FillStyleType             : TokenTrait { static constexpr std::array allowed{Word::EvenOdd, Word::Winding}; };
struct HorizontalAlignmentType   : TokenTrait { static constexpr std::array allowed{Word::Left, Word::Center, Word::Right}; };
struct LayoutType                : TokenTrait { static constexpr std::array allowed{Word::Tabular, Word::Horizontal, Word::Vertical, Word::Absolute, Word::Relative}; };
struct LegendPlacementType       : TokenTrait { static constexpr std::array allowed{Word::Top, Word::Bottom}; };
struct LightingType              : TokenTrait { static constexpr std::array allowed{Word::None, Word::Automatic, Word::Explicit}; };
struct LineStyleType             : TokenTrait { static constexpr std::array allowed{Word::Solid, Word::Dashed, Word::Dotted}; };
struct PointStyleType            : TokenTrait { static constexpr std::array allowed{Word::Squares, Word::FilledSquares, Word::Circles, Word::FilledCircles, Word::Diamonds, Word::FilledDiamonds, Word::Crosses, Word::XCrosses, Word::Stars}; };
struct ScalingType               : TokenTrait { static constexpr std::array allowed{Word::Constrained, Word::Unconstrained, Word::Automatic}; };
struct ShadingType               : TokenTrait { static constexpr std::array allowed{Word::Flat, Word::Smooth}; };
struct TicksLabelStyleType       : TokenTrait { static constexpr std::array allowed{Word::Horizontal, Word::Vertical, Word::Diagonal, Word::Shifted}; };
struct TicksNumberType           : TokenTrait { static constexpr std::array allowed{Word::None, Word::Low, Word::Normal, Word::High}; };
struct TipStyleType              : TokenTrait { static constexpr std::array allowed{Word::Filled, Word::Open, Word::Closed}; };
struct VerticalAlignmentType     : TokenTrait { static constexpr std::array allowed{Word::Top, Word::BaseLine, Word::Center, Word::Bottom}; };
struct YAxisTitleOrientationType : TokenTrait { static constexpr std::array allowed{Word::Horizontal, Word::Vertical}; };
// clang-format on

/// The command form names the unit in the words of the algebra system.
struct OutputUnitsType : TokenTrait {
  using PutCmd = UnitPutCmd;
  static constexpr std::array allowed{Word::MM, Word::In, Word::Pt};
};

/// The name of another property of the same object, one that holds a colour.
struct LegendColorType : TokenTrait {};

/// The type of a style or transform. The command form writes it as the name of the call instead.
struct TypePropertyImpl : TokenTrait {
  static constexpr bool hiddenInCommand = true;
};

// Numbers.

/// A length above 0, in millimetres.
struct PosOutputSizeType : SizeTrait {
  static bool isValid(double millimetres) { return millimetres > 0; }
};

/// A length in millimetres; a negative one becomes 0.
struct NonNegOutputSizeType : SizeTrait {
  static void normalize(double& millimetres) {
    if (millimetres < 0) millimetres = 0;
  }
};

/// A length in millimetres that is refused when negative. The canvas and the primitives bring a
/// negative length to 0 instead; scenes and object styles do not.
struct NonNegOutputSizeListType : SizeTrait {
  static bool isValid(double millimetres) { return millimetres >= 0; }
};

/// A whole number with a lower bound.
template <std::int32_t minimum>
struct AtLeastType : LongTrait {
  static bool isValid(std::int32_t value) { return value >= minimum; }
};

struct NonNegLongType : AtLeastType<0> {};
struct FramesType : AtLeastType<0> {};
struct MeshType : AtLeastType<1> {};
struct SubmeshType : AtLeastType<0> {};

/// A length in model coordinates; a negative one becomes 0.
struct NonNegLengthType : DoubleTrait {
  static void normalize(double& length) {
    if (length < 0) length = 0;
  }
};

struct RadiusType : NonNegLengthType {};
struct SemiAxisType : NonNegLengthType {};

/// Brought to the nearer bound of 0 to 1; a NaN stays.
struct LightIntensityType : DoubleTrait {
  static void normalize(double& intensity) {
    if (intensity < 0) intensity = 0;
    if (intensity > 1) intensity = 1;
  }
};

// Names for a role; they add no rule.

struct AxesBoolProperty : BoolTrait {};
struct TicksBoolProperty : BoolTrait {};
struct GridBoolProperty : BoolTrait {};
struct TicksLongProperty : LongTrait {};
/// A mask of the bits of the viewing box parts that were computed and not given.
struct AutoViewingBoxType : LongTrait {};
struct TimeOrNaNType : DoubleTrait {};
/// In radians.
struct AngleType : DoubleTrait {};
struct ImgPropDoubleType : DoubleTrait {};
struct PositionType : DoubleTrait {};
struct ViewParamType : DoubleTrait {};
struct RangeBoundType : DoubleTrait {};
struct RangeValueType : DoubleTrait {};

/// An identifier that is read and kept, and never written back.
struct IdPropertyImpl : Utf8StringTrait {
  static constexpr bool hiddenInXml = true;
};

/// Whether the drawing is in line with the expressions behind it; no argument of a command.
struct ConsistentPropertyImpl : BoolTrait {
  static constexpr bool hiddenInCommand = true;
};

}  // namespace PlotDom
