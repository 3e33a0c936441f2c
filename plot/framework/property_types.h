// The named types of properties: the words of each enumeration and the rules of each number.
#pragma once

#include <array>

#include "vantry/base/vocabulary.h"
#include "vantry/plot/framework/property_traits.h"

namespace vantry::plot {

namespace Word = base::Word;
using base::Token;
using base::WordId;

// Enumerations. Some kinds of words have an editor of their own.

template <WordId editorWord = WordId::Enum>
struct EnumTrait : TokenTrait {
  static constexpr Token editor = base::tokenOf(editorWord);
};

// clang-format off
struct AnimationStyleType        : EnumTrait<>                           { static constexpr std::array allowed{Word::RunOnce, Word::Loop, Word::BackAndForth}; };
struct ArrowLengthType           : EnumTrait<>                           { static constexpr std::array allowed{Word::Fixed, Word::Proportional, Word::Logarithmic}; };
struct AxesType                  : EnumTrait<>                           { static constexpr std::array allowed{Word::Boxed, Word::Frame, Word::Origin, Word::Automatic, Word::None}; };
struct AxisTitleAlignmentType    : EnumTrait<WordId::AxisTitleAlignment> { static constexpr std::array allowed{Word::Begin, Word::Center, Word::End}; };
struct BackgroundStyleType       : EnumTrait<>                           { static constexpr std::array allowed{Word::Flat, Word::LeftRight, Word::TopBottom, Word::Pyramid}; };
struct ColorType                 : EnumTrait<WordId::ColorType>          { static constexpr std::array allowed{Word::Flat, Word::Monochrome, Word::Dichromatic, Word::Rainbow, Word::Functional}; };
struct CoordinateType2dType      : EnumTrait<WordId::CoordinateType2d>   { static constexpr std::array allowed{Word::LinLin, Word::LogLog, Word::LinLog, Word::LogLin}; };
struct ExtensionType             : EnumTrait<>                           { static constexpr std::array allowed{Word::Finite, Word::Infinite, Word::SemiInfinite}; };
struct FillPatternType           : EnumTrait<>                           { static constexpr std::array allowed{Word::Solid, Word::HorizontalLines, Word::VerticalLines, Word::DiagonalLines, Word::FDiagonalLines, Word::CrossedLines, Word::XCrossedLines}; };
struct FillStyleType             : EnumTrait<>                           { static constexpr std::array allowed{Word::EvenOdd, Word::Winding}; };
struct HorizontalAlignmentType   : EnumTrait<WordId::HorAlignment>       { static constexpr std::array allowed{Word::Left, Word::Center, Word::Right}; };
struct LayoutType                : EnumTrait<>                           { static constexpr std::array allowed{Word::Tabular, Word::Horizontal, Word::Vertical, Word::Absolute, Word::Relative}; };
struct LegendPlacementType       : EnumTrait<>                           { static constexpr std::array allowed{Word::Top, Word::Bottom}; };
struct LightingType              : EnumTrait<>                           { static constexpr std::array allowed{Word::None, Word::Automatic, Word::Explicit}; };
struct LineStyleType             : EnumTrait<WordId::LineStyle>          { static constexpr std::array allowed{Word::Solid, Word::Dashed, Word::Dotted}; };
struct PointStyleType            : EnumTrait<>                           { static constexpr std::array allowed{Word::Squares, Word::FilledSquares, Word::Circles, Word::FilledCircles, Word::Diamonds, Word::FilledDiamonds, Word::Crosses, Word::XCrosses, Word::Stars}; };
struct ScalingType               : EnumTrait<>                           { static constexpr std::array allowed{Word::Constrained, Word::Unconstrained, Word::Automatic}; };
struct ShadingType               : EnumTrait<>                           { static constexpr std::array allowed{Word::Flat, Word::Smooth}; };
struct TicksLabelStyleType       : EnumTrait<WordId::TicksLabelStyle>    { static constexpr std::array allowed{Word::Horizontal, Word::Vertical, Word::Diagonal, Word::Shifted}; };
struct TicksNumberType           : EnumTrait<WordId::TicksNumber>        { static constexpr std::array allowed{Word::None, Word::Low, Word::Normal, Word::High}; };
struct TipStyleType              : EnumTrait<>                           { static constexpr std::array allowed{Word::Filled, Word::Open, Word::Closed}; };
struct VerticalAlignmentType     : EnumTrait<WordId::VertAlignment>      { static constexpr std::array allowed{Word::Top, Word::BaseLine, Word::Center, Word::Bottom}; };
struct YAxisTitleOrientationType : EnumTrait<WordId::TitleOrientation>   { static constexpr std::array allowed{Word::Horizontal, Word::Vertical}; };
// clang-format on

/// The command form names the unit in the words of the algebra system.
struct OutputUnitsType : EnumTrait<> {
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
  static constexpr Token editor = Word::PosSize;
  static bool isValid(double millimetres) { return millimetres > 0; }
};

/// A length in millimetres; a negative one becomes 0.
struct NonNegOutputSizeType : SizeTrait {
  static constexpr Token editor = Word::NonNegSize;
  static void normalize(double& millimetres) {
    if (millimetres < 0) millimetres = 0;
  }
};

/// A length in millimetres that is refused when negative. The canvas and the primitives bring a
/// negative length to 0 instead; scenes and object styles do not.
struct NonNegOutputSizeListType : SizeTrait {
  static constexpr Token editor = Word::NonNegSize;
  static bool isValid(double millimetres) { return millimetres >= 0; }
};

/// A whole number with a lower bound.
template <std::int32_t minimum>
struct AtLeastType : LongTrait {
  static constexpr Token editor = minimum > 0 ? Word::PosInt : Word::NonNegInt;
  static bool isValid(std::int32_t value) { return value >= minimum; }
};

struct NonNegLongType : AtLeastType<0> {};
struct FramesType : AtLeastType<0> {};
struct MeshType : AtLeastType<1> {};
struct SubmeshType : AtLeastType<0> {};

/// A length in model coordinates; a negative one becomes 0.
struct NonNegLengthType : DoubleTrait {
  static constexpr Token editor = Word::NonNegFloat;
  static void normalize(double& length) {
    if (length < 0) length = 0;
  }
};

struct RadiusType : NonNegLengthType {};
struct SemiAxisType : NonNegLengthType {};

/// Brought to the nearer bound of 0 to 1; a NaN stays.
struct LightIntensityType : DoubleTrait {
  static constexpr Token editor = Word::Intensity;
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
struct FloatOrNaNTrait : DoubleTrait {
  static constexpr Token editor = Word::FloatOrNaN;
};
struct TimeOrNaNType : FloatOrNaNTrait {};
struct ImgPropDoubleType : FloatOrNaNTrait {};
struct ViewParamType : FloatOrNaNTrait {};
/// In radians.
struct AngleType : DoubleTrait {
  static constexpr Token editor = Word::Angle;
};
struct PositionType : DoubleTrait {};
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

}  // namespace vantry::plot
