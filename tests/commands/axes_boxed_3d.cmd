plot(
  plot::Canvas(
    Height=80,
    Width=120,
    plot::Scene3d::BackgroundColor=[0.941176,0.972549,1],
    plot::Scene3d::Lighting=None,
    plot::Scene3d::YXRatio=1,
    plot::Scene3d::ZXRatio=0.5,
    plot::Scene3d(
      plot::CoordinateSystem3d(
        AxesLineWidth=0.25,
        ViewingBoxZMax=(1),
        XAxisTitle="größe",
        ZAxisTitle="α → ∞",
        plot::Box(
))))):
