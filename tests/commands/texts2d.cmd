plot(
  plot::Canvas(
    TextFont=["Helvetica",10,[0.0980392,0.0980392,0.439216],Left],
    plot::Scene2d(
      plot::CoordinateSystem2d(
        plot::Text2d(
),
        plot::Text2d(
          HorizontalAlignment=Center,
          TextFont=["Times",14,Bold,Italic,[1,0,0],Left],
          VerticalAlignment=Top),
        plot::Text2d(
          HorizontalAlignment=Right,
          TextFont=["Größe & Co",8,Italic,[0,0,0],Left],
          VerticalAlignment=Bottom),
        plot::Translate2d(
          plot::Text2d(
)))))):
