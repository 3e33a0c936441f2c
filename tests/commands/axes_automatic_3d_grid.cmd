plot(
  plot::Canvas(
    plot::Scene3d(
      Lighting=None,
      plot::CoordinateSystem3d(
        Axes=Automatic,
        XGridVisible=TRUE,
        YGridVisible=TRUE,
        ViewingBoxZMax=(4),
        XAxisTitle="",
        YAxisTitle="  y",
        plot::Box(
))))):
