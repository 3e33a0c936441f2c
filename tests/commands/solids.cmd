plot(
  plot::Canvas(
    plot::Scene3d(
      plot::CoordinateSystem3d(
        plot::Group(
))))):
