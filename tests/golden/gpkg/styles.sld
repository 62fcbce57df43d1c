<?xml version="1.0" encoding="UTF-8"?>
<StyledLayerDescriptor xmlns="http://www.opengis.net/sld" xmlns:ogc="http://www.opengis.net/ogc" version="1.0.0">
 <NamedLayer>
  <Name>roads &amp; &lt;rails&gt;</Name>
  <UserStyle>
   <Name>roads &amp; &lt;rails&gt;</Name>
   <FeatureTypeStyle>
    <Rule>
     <Name>1</Name>
     <ogc:Filter>
      <ogc:PropertyIsEqualTo>
       <ogc:PropertyName>style</ogc:PropertyName>
       <ogc:Literal>1</ogc:Literal>
      </ogc:PropertyIsEqualTo>
     </ogc:Filter>
     <LineSymbolizer>
      <Stroke>
       <CssParameter name="stroke">#102030</CssParameter>
       <CssParameter name="stroke-width">1</CssParameter>
       <CssParameter name="stroke-linejoin">round</CssParameter>
       <CssParameter name="stroke-linecap">round</CssParameter>
      </Stroke>
     </LineSymbolizer>
    </Rule>
    <Rule>
     <Name>2</Name>
     <ogc:Filter>
      <ogc:PropertyIsEqualTo>
       <ogc:PropertyName>style</ogc:PropertyName>
       <ogc:Literal>2</ogc:Literal>
      </ogc:PropertyIsEqualTo>
     </ogc:Filter>
     <LineSymbolizer>
      <Stroke>
       <CssParameter name="stroke">#ff0000</CssParameter>
       <CssParameter name="stroke-width">4</CssParameter>
       <CssParameter name="stroke-linejoin">round</CssParameter>
       <CssParameter name="stroke-linecap">butt</CssParameter>
       <CssParameter name="stroke-dasharray">12 4 4 4</CssParameter>
      </Stroke>
     </LineSymbolizer>
    </Rule>
    <Rule>
     <Name>3</Name>
     <ogc:Filter>
      <ogc:PropertyIsEqualTo>
       <ogc:PropertyName>style</ogc:PropertyName>
       <ogc:Literal>3</ogc:Literal>
      </ogc:PropertyIsEqualTo>
     </ogc:Filter>
     <PolygonSymbolizer>
      <Fill>
       <CssParameter name="fill">#00ff00</CssParameter>
      </Fill>
      <Stroke>
       <CssParameter name="stroke">#102030</CssParameter>
       <CssParameter name="stroke-width">1</CssParameter>
       <CssParameter name="stroke-linejoin">round</CssParameter>
       <CssParameter name="stroke-linecap">round</CssParameter>
      </Stroke>
     </PolygonSymbolizer>
    </Rule>
    <Rule>
     <Name>4</Name>
     <ogc:Filter>
      <ogc:PropertyIsEqualTo>
       <ogc:PropertyName>style</ogc:PropertyName>
       <ogc:Literal>4</ogc:Literal>
      </ogc:PropertyIsEqualTo>
     </ogc:Filter>
     <PolygonSymbolizer>
     </PolygonSymbolizer>
    </Rule>
    <Rule>
     <Name>5</Name>
     <ogc:Filter>
      <ogc:PropertyIsEqualTo>
       <ogc:PropertyName>style</ogc:PropertyName>
       <ogc:Literal>5</ogc:Literal>
      </ogc:PropertyIsEqualTo>
     </ogc:Filter>
     <PolygonSymbolizer>
      <Fill>
       <CssParameter name="fill">#0000ff</CssParameter>
       <CssParameter name="fill-opacity">0.2344</CssParameter>
      </Fill>
      <Stroke>
       <CssParameter name="stroke">#102030</CssParameter>
       <CssParameter name="stroke-width">1</CssParameter>
       <CssParameter name="stroke-linejoin">round</CssParameter>
       <CssParameter name="stroke-linecap">round</CssParameter>
      </Stroke>
     </PolygonSymbolizer>
    </Rule>
    <Rule>
     <Name>6</Name>
     <ogc:Filter>
      <ogc:PropertyIsEqualTo>
       <ogc:PropertyName>style</ogc:PropertyName>
       <ogc:Literal>6</ogc:Literal>
      </ogc:PropertyIsEqualTo>
     </ogc:Filter>
     <PolygonSymbolizer>
      <Fill>
       <CssParameter name="fill">#0000ff</CssParameter>
       <CssParameter name="fill-opacity">0.5</CssParameter>
      </Fill>
      <Stroke>
       <CssParameter name="stroke">#102030</CssParameter>
       <CssParameter name="stroke-width">1</CssParameter>
       <CssParameter name="stroke-linejoin">round</CssParameter>
       <CssParameter name="stroke-linecap">round</CssParameter>
      </Stroke>
     </PolygonSymbolizer>
    </Rule>
    <Rule>
     <Name>7</Name>
     <ogc:Filter>
      <ogc:PropertyIsEqualTo>
       <ogc:PropertyName>style</ogc:PropertyName>
       <ogc:Literal>7</ogc:Literal>
      </ogc:PropertyIsEqualTo>
     </ogc:Filter>
     <PointSymbolizer>
      <Graphic>
       <Mark>
        <WellKnownName>star</WellKnownName>
        <Fill>
         <CssParameter name="fill">#ff00ff</CssParameter>
        </Fill>
       </Mark>
       <Size>24</Size>
      </Graphic>
     </PointSymbolizer>
    </Rule>
    <Rule>
     <Name>8</Name>
     <ogc:Filter>
      <ogc:PropertyIsEqualTo>
       <ogc:PropertyName>style</ogc:PropertyName>
       <ogc:Literal>8</ogc:Literal>
      </ogc:PropertyIsEqualTo>
     </ogc:Filter>
     <PointSymbolizer>
      <Graphic>
       <Mark>
        <WellKnownName>square</WellKnownName>
        <Stroke>
         <CssParameter name="stroke">#ff00ff</CssParameter>
         <CssParameter name="stroke-width">2.4</CssParameter>
         <CssParameter name="stroke-linejoin">round</CssParameter>
         <CssParameter name="stroke-linecap">round</CssParameter>
        </Stroke>
       </Mark>
       <Size>20.4</Size>
      </Graphic>
     </PointSymbolizer>
    </Rule>
    <Rule>
     <Name>9</Name>
     <ogc:Filter>
      <ogc:PropertyIsEqualTo>
       <ogc:PropertyName>style</ogc:PropertyName>
       <ogc:Literal>9</ogc:Literal>
      </ogc:PropertyIsEqualTo>
     </ogc:Filter>
    </Rule>
    <Rule>
     <Name>10</Name>
     <ogc:Filter>
      <ogc:PropertyIsEqualTo>
       <ogc:PropertyName>style</ogc:PropertyName>
       <ogc:Literal>10</ogc:Literal>
      </ogc:PropertyIsEqualTo>
     </ogc:Filter>
     <PointSymbolizer>
      <Graphic>
       <Mark>
        <WellKnownName>circle</WellKnownName>
        <Fill>
         <CssParameter name="fill">#808080</CssParameter>
        </Fill>
       </Mark>
       <Size>32</Size>
      </Graphic>
     </PointSymbolizer>
    </Rule>
    <Rule>
     <Name>11</Name>
     <ogc:Filter>
      <ogc:PropertyIsEqualTo>
       <ogc:PropertyName>style</ogc:PropertyName>
       <ogc:Literal>11</ogc:Literal>
      </ogc:PropertyIsEqualTo>
     </ogc:Filter>
     <TextSymbolizer>
      <Label>
       <ogc:PropertyName>text</ogc:PropertyName>
      </Label>
      <Font>
       <CssParameter name="font-family">Arial &amp; &lt;Sons&gt;</CssParameter>
       <CssParameter name="font-style">italic</CssParameter>
       <CssParameter name="font-weight">bold</CssParameter>
      </Font>
      <Fill>
       <CssParameter name="fill">#123456</CssParameter>
      </Fill>
     </TextSymbolizer>
    </Rule>
    <Rule>
     <Name>12</Name>
     <ogc:Filter>
      <ogc:PropertyIsEqualTo>
       <ogc:PropertyName>style</ogc:PropertyName>
       <ogc:Literal>12</ogc:Literal>
      </ogc:PropertyIsEqualTo>
     </ogc:Filter>
     <TextSymbolizer>
      <Label>
       <ogc:PropertyName>text</ogc:PropertyName>
      </Label>
      <Font>
       <CssParameter name="font-family">Arial</CssParameter>
       <CssParameter name="font-style">normal</CssParameter>
       <CssParameter name="font-weight">normal</CssParameter>
      </Font>
      <Halo>
       <Fill>
        <CssParameter name="fill">#ffffff</CssParameter>
       </Fill>
      </Halo>
      <Fill>
       <CssParameter name="fill">#000000</CssParameter>
      </Fill>
     </TextSymbolizer>
    </Rule>
    <Rule>
     <Name>13</Name>
     <ogc:Filter>
      <ogc:PropertyIsEqualTo>
       <ogc:PropertyName>style</ogc:PropertyName>
       <ogc:Literal>13</ogc:Literal>
      </ogc:PropertyIsEqualTo>
     </ogc:Filter>
     <PointSymbolizer>
      <Graphic>
       <Mark>
        <WellKnownName>circle</WellKnownName>
        <Fill>
         <CssParameter name="fill">#266699</CssParameter>
        </Fill>
       </Mark>
       <Size>7</Size>
      </Graphic>
     </PointSymbolizer>
    </Rule>
   </FeatureTypeStyle>
  </UserStyle>
 </NamedLayer>
</StyledLayerDescriptor>
