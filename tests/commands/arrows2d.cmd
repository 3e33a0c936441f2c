plot(
  plot::Canvas(
    LineColor=[0.784314,0,0],
    LineColor2=[0,0,0.784314],
    LineWidth=0.35,
    plot::Scene2d(
      plot::Arrow2d::LineColor=[0,0.392157,0],
      plot::Arrow2d::TipLength=3,
      plot::CoordinateSystem2d(
        plot::Arrow2d(
          LegendText="arrows"),
        plot::VectorField2d(
          LegendText="round and round",
          XFunction=(-y),
          YFunction=(x)),
        plot::VectorField2d(
          LineColorType=Functional,
          TipLength=0,
          LegendText="with a colour each"),
        plot::Scale2d(
          plot::VectorField2d(
            LegendText="vectors move like points")))))):
