plot(
  plot::Canvas(
    LineWidth=0.4,
    plot::Scene3d(
      plot::CoordinateSystem3d(
        ViewingBoxZMax=NIL,
        plot::Curve3d(
))))):
