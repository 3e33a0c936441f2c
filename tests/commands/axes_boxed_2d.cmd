plot(
  plot::Canvas(
    plot::Scene2d(
      plot::CoordinateSystem2d(
        XAxisTitle="x",
        YAxisTitle="x < 0 & \"x\" > '0'",
        plot::Curve2d(
))))):
