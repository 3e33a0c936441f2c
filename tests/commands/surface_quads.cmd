plot(
  plot::Canvas(
    plot::Scene3d(
      plot::CoordinateSystem3d(
        ViewingBoxZMax=NIL,
        plot::Surface(
))))):
