// The named types of properties: the words of each enumeration and the rules of each number.
#pragma once

#include <array>

#include "vantry/base/vocabulary.h"
#include "vantry/plot/framework/basic_types.h"

namespace vantry::plot {

namespace Word = base::Word;
using base::Token;
using base::WordId;

// Enumerations. Some kinds of words have an editor of their own.

template <WordId editorWord = WordId::Enum>
struct EnumType : TokenType {
  static constexpr Token editor = base::tokenOf(editorWord);
};

// clang-format off
struct AnimationStyleType        : EnumType<>                           { static constexpr std::array allowed{Word::RunOnce, Word::Loop, Word::BackAndForth}; };
struct ArrowLengthType           : EnumType<>                           { static constexpr std::array allowed{Word::Fixed, Word::Proportional, Word::Logarithmic}; };
struct AxesType                  : EnumType<>                           { static constexpr std::array allowed{Word::Boxed, Word::Frame, Word::Origin, Word::Automatic, Word::None}; };
struct AxisTitleAlignmentType    : EnumType<WordId::AxisTitleAlignment> { static constexpr std::array allowed{Word::Begin, Word::Center, Word::End}; };
struct BackgroundStyleType       : EnumType<>                           { static constexpr std::array allowed{Word::Flat, Word::LeftRight, Word::TopBottom, Word::Pyramid}; };
struct ColorType                 : EnumType<WordId::ColorType>          { static constexpr std::array allowed{Word::Flat, Word::Monochrome, Word::Dichromatic, Word::Rainbow, Word::Functional}; };
struct CoordinateType2dType      : EnumType<WordId::CoordinateType2d>   { static constexpr std::array allowed{Word::LinLin, Word::LogLog, Word::LinLog, Word::LogLin}; };
struct ExtensionType             : EnumType<>                           { static constexpr std::array allowed{Word::Finite, Word::Infinite, Word::SemiInfinite}; };
struct FillPatternType           : EnumType<>                           { static constexpr std::array allowed{Word::Solid, Word::HorizontalLines, Word::VerticalLines, Word::DiagonalLines, Word::FDiagonalLines, Word::CrossedLines, Word::XCrossedLines}; };
struct FillStyleType             : EnumType<>                           { static constexpr std::array allowed{Word::EvenOdd, Word::Winding}; };
struct HorizontalAlignmentType   : EnumType<WordId::HorAlignment>       { static constexpr std::array allowed{Word::Left, Word::Center, Word::Right}; };
struct LayoutType                : EnumType<>                           { static constexpr std::array allowed{Word::Tabular, Word::Horizontal, Word::Vertical, Word::Absolute, Word::Relative}; };
struct LegendPlacementType       : EnumType<>                           { static constexpr std::array allowed{Word::Top, Word::Bottom}; };
struct LightingType              : EnumType<>                           { static constexpr std::array allowed{Word::None, Word::Automatic, Word::Explicit}; };
struct LineStyleType             : EnumType<WordId::LineStyle>          { static constexpr std::array allowed{Word::Solid, Word::Dashed, Word::Dotted}; };
struct PointStyleType            : EnumType<>                           { static constexpr std::array allowed{Word::Squares, Word::FilledSquares, Word::Circles, Word::FilledCircles, Word::Diamonds, Word::FilledDiamonds, Word::Crosses, Word::XCrosses, Word::Stars}; };
struct ScalingType               : EnumType<>                           { static constexpr std::array allowed{Word::Constrained, Word::Unconstrained, Word::Automatic}; };
struct ShadingType               : EnumType<>                           { static constexpr std::array allowed{Word::Flat, Word::Smooth}; };
struct TicksLabelStyleType       : EnumType<WordId::TicksLabelStyle>    { static constexpr std::array allowed{Word::Horizontal, Word::Vertical, Word::Diagonal, Word::Shifted}; };
struct TicksNumberType           : EnumType<WordId::TicksNumber>        { static constexpr std::array allowed{Word::None, Word::Low, Word::Normal, Word::High}; };
struct TipStyleType              : EnumType<>                           { static constexpr std::array allowed{Word::Filled, Word::Open, Word::Closed}; };
struct VerticalAlignmentType     : EnumType<WordId::VertAlignment>      { static constexpr std::array allowed{Word::Top, Word::BaseLine, Word::Center, Word::Bottom}; };
struct YAxisTitleOrientationType : EnumType<WordId::TitleOrientation>   { static constexpr std::array allowed{Word::Horizontal, Word::Vertical}; };
// clang-format on

/// The command form names the unit in the words of the algebra system.
struct OutputUnitsType : EnumType<> {
  using PutCmd = UnitPutCmd;
  static constexpr std::array allowed{Word::MM, Word::In, Word::Pt};
};

/// The name of another property of the same object, one that holds a colour.
struct LegendColorType : TokenType {};

/// The type of a style or transform. The command form writes it as the name of the call instead.
struct TypeNameType : TokenType {
  static constexpr bool hiddenInCommand = true;
};

// Numbers.

/// A length above 0, in millimetres.
struct PosOutputSizeType : SizeType {
  static constexpr Token editor = Word::PosSize;
  static bool isValid(double millimetres) { return millimetres > 0; }
};

/// A length in millimetres; a negative one becomes 0.
struct NonNegOutputSizeType : SizeType {
  static constexpr Token editor = Word::NonNegSize;
  static void normalize(double& millimetres) {
    if (millimetres < 0) millimetres = 0;
  }
};

/// A length in millimetres that is refused when negative. The canvas and the primitives bring a
/// negative length to 0 instead; scenes and object styles do not.
struct NonNegOutputSizeListType : SizeType {
  static constexpr Token editor = Word::NonNegSize;
  static bool isValid(double millimetres) { return millimetres >= 0; }
};

/// A whole number with a lower bound.
template <std::int32_t minimum>
struct AtLeastType : LongType {
  static constexpr Token editor = minimum > 0 ? Word::PosInt : Word::NonNegInt;
  static bool isValid(std::int32_t value) { return value >= minimum; }
};

struct NonNegLongType : AtLeastType<0> {};
struct MeshType : AtLeastType<1> {};

/// A length in model coordinates; a negative one becomes 0.
struct NonNegLengthType : DoubleType {
  static constexpr Token editor = Word::NonNegFloat;
  static void normalize(double& length) {
    if (length < 0) length = 0;
  }
};

/// Brought to the nearer bound of 0 to 1; a NaN stays.
struct LightIntensityType : DoubleType {
  static constexpr Token editor = Word::Intensity;
  static void normalize(double& intensity) {
    if (intensity < 0) intensity = 0;
    if (intensity > 1) intensity = 1;
  }
};

/// NaN where there is no value.
struct FloatOrNaNType : DoubleType {
  static constexpr Token editor = Word::FloatOrNaN;
};

/// In radians.
struct AngleType : DoubleType {
  static constexpr Token editor = Word::Angle;
};

/// An identifier that is read and kept, and never written back.
struct IdType : Utf8StringType {
  static constexpr bool hiddenInXml = true;
};

/// Whether the drawing is in line with the expressions behind it; no argument of a command.
struct ConsistentType : BoolType {
  static constexpr bool hiddenInCommand = true;
};

}  // namespace vantry::plot
