plot(
  plot::Canvas(
    LineColor=[0,0,0.501961],
    LineWidth=0.35,
    plot::Scene2d(
      plot::CoordinateSystem2d(
        plot::Circle2d(
          Filled=FALSE,
          LegendText="a whole circle"),
        plot::Ellipse2d(
          FillColor=[0.392157,0.584314,0.929412,0.501961],
          LinesVisible=FALSE,
          LegendText="a whole ellipse, filled"),
        plot::Arc2d(
          LegendText="parts"),
        plot::Arc2d(
          Filled=FALSE,
          LegendText="without angles"),
        plot::Arc2d(
          LegendText="backwards"),
        plot::Transform2d(
          plot::Arc2d(
            Filled=FALSE,
            LineColor=[0.501961,0,0,0.501961],
            LegendText="turned")))))):
