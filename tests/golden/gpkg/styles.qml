<!DOCTYPE qgis PUBLIC 'http://mrcc.com/qgis.dtd' 'SYSTEM'>
<qgis version="3.22.0" styleCategories="Symbology|Labeling" labelsEnabled="1">
 <renderer-v2 type="categorizedSymbol" attr="style" symbollevels="0" enableorderby="0" forceraster="0">
  <categories>
   <category value="1" symbol="0" label="1" render="true"/>
   <category value="2" symbol="1" label="2" render="true"/>
   <category value="3" symbol="2" label="3" render="true"/>
   <category value="4" symbol="3" label="4" render="true"/>
   <category value="5" symbol="4" label="5" render="true"/>
   <category value="6" symbol="5" label="6" render="true"/>
   <category value="7" symbol="6" label="7" render="true"/>
   <category value="8" symbol="7" label="8" render="true"/>
   <category value="9" symbol="8" label="9" render="true"/>
   <category value="10" symbol="9" label="10" render="true"/>
   <category value="11" symbol="10" label="11" render="true"/>
   <category value="12" symbol="11" label="12" render="true"/>
   <category value="13" symbol="12" label="13" render="true"/>
  </categories>
  <symbols>
   <symbol name="0" type="line" alpha="1" clip_to_extent="1" force_rhr="0">
    <layer class="SimpleLine" enabled="1" locked="0" pass="0">
     <prop k="line_color" v="16,32,48,255"/>
     <prop k="line_style" v="solid"/>
     <prop k="line_width" v="0.75"/>
     <prop k="line_width_unit" v="Point"/>
     <prop k="capstyle" v="round"/>
     <prop k="joinstyle" v="round"/>
    </layer>
   </symbol>
   <symbol name="1" type="line" alpha="1" clip_to_extent="1" force_rhr="0">
    <layer class="SimpleLine" enabled="1" locked="0" pass="0">
     <prop k="line_color" v="255,0,0,255"/>
     <prop k="line_style" v="solid"/>
     <prop k="line_width" v="3"/>
     <prop k="line_width_unit" v="Point"/>
     <prop k="capstyle" v="flat"/>
     <prop k="joinstyle" v="round"/>
     <prop k="use_custom_dash" v="1"/>
     <prop k="customdash" v="9;3;3;3"/>
     <prop k="customdash_unit" v="Point"/>
    </layer>
   </symbol>
   <symbol name="2" type="fill" alpha="1" clip_to_extent="1" force_rhr="0">
    <layer class="SimpleFill" enabled="1" locked="0" pass="0">
     <prop k="color" v="0,255,0,255"/>
     <prop k="style" v="solid"/>
     <prop k="outline_style" v="no"/>
    </layer>
    <layer class="SimpleLine" enabled="1" locked="0" pass="0">
     <prop k="line_color" v="16,32,48,255"/>
     <prop k="line_style" v="solid"/>
     <prop k="line_width" v="0.75"/>
     <prop k="line_width_unit" v="Point"/>
     <prop k="capstyle" v="round"/>
     <prop k="joinstyle" v="round"/>
    </layer>
   </symbol>
   <symbol name="3" type="fill" alpha="1" clip_to_extent="1" force_rhr="0">
    <layer class="SimpleLine" enabled="1" locked="0" pass="0">
     <prop k="line_color" v="0,0,0,255"/>
     <prop k="line_style" v="no"/>
     <prop k="line_width" v="0"/>
     <prop k="line_width_unit" v="Point"/>
     <prop k="capstyle" v="round"/>
     <prop k="joinstyle" v="round"/>
    </layer>
   </symbol>
   <symbol name="4" type="fill" alpha="1" clip_to_extent="1" force_rhr="0">
    <layer class="SimpleFill" enabled="1" locked="0" pass="0">
     <prop k="color" v="255,255,0,255"/>
     <prop k="style" v="solid"/>
     <prop k="outline_style" v="no"/>
    </layer>
    <layer class="LinePatternFill" enabled="1" locked="0" pass="0">
     <prop k="angle" v="45"/>
     <prop k="distance" v="6"/>
     <prop k="distance_unit" v="Point"/>
     <prop k="line_width" v="0.75"/>
     <prop k="line_width_unit" v="Point"/>
     <prop k="color" v="0,0,255,255"/>
     <symbol name="@4@1" type="line" alpha="1" clip_to_extent="1" force_rhr="0">
      <layer class="SimpleLine" enabled="1" locked="0" pass="0">
       <prop k="line_color" v="0,0,255,255"/>
       <prop k="line_style" v="solid"/>
       <prop k="line_width" v="0.75"/>
       <prop k="line_width_unit" v="Point"/>
       <prop k="capstyle" v="round"/>
       <prop k="joinstyle" v="round"/>
      </layer>
     </symbol>
    </layer>
    <layer class="LinePatternFill" enabled="1" locked="0" pass="0">
     <prop k="angle" v="-45"/>
     <prop k="distance" v="6"/>
     <prop k="distance_unit" v="Point"/>
     <prop k="line_width" v="0.75"/>
     <prop k="line_width_unit" v="Point"/>
     <prop k="color" v="0,0,255,255"/>
     <symbol name="@4@2" type="line" alpha="1" clip_to_extent="1" force_rhr="0">
      <layer class="SimpleLine" enabled="1" locked="0" pass="0">
       <prop k="line_color" v="0,0,255,255"/>
       <prop k="line_style" v="solid"/>
       <prop k="line_width" v="0.75"/>
       <prop k="line_width_unit" v="Point"/>
       <prop k="capstyle" v="round"/>
       <prop k="joinstyle" v="round"/>
      </layer>
     </symbol>
    </layer>
    <layer class="SimpleLine" enabled="1" locked="0" pass="0">
     <prop k="line_color" v="16,32,48,255"/>
     <prop k="line_style" v="solid"/>
     <prop k="line_width" v="0.75"/>
     <prop k="line_width_unit" v="Point"/>
     <prop k="capstyle" v="round"/>
     <prop k="joinstyle" v="round"/>
    </layer>
   </symbol>
   <symbol name="5" type="fill" alpha="1" clip_to_extent="1" force_rhr="0">
    <layer class="SimpleFill" enabled="1" locked="0" pass="0">
     <prop k="color" v="0,0,255,128"/>
     <prop k="style" v="solid"/>
     <prop k="outline_style" v="no"/>
    </layer>
    <layer class="SimpleLine" enabled="1" locked="0" pass="0">
     <prop k="line_color" v="16,32,48,255"/>
     <prop k="line_style" v="solid"/>
     <prop k="line_width" v="0.75"/>
     <prop k="line_width_unit" v="Point"/>
     <prop k="capstyle" v="round"/>
     <prop k="joinstyle" v="round"/>
    </layer>
   </symbol>
   <symbol name="6" type="marker" alpha="1" clip_to_extent="1" force_rhr="0">
    <layer class="SimpleMarker" enabled="1" locked="0" pass="0">
     <prop k="name" v="star"/>
     <prop k="color" v="255,0,255,255"/>
     <prop k="size" v="18"/>
     <prop k="size_unit" v="Point"/>
     <prop k="angle" v="0"/>
     <prop k="outline_color" v="255,0,255,255"/>
     <prop k="outline_style" v="no"/>
     <prop k="outline_width" v="0"/>
     <prop k="outline_width_unit" v="Point"/>
     <prop k="joinstyle" v="miter"/>
    </layer>
   </symbol>
   <symbol name="7" type="marker" alpha="1" clip_to_extent="1" force_rhr="0">
    <layer class="SimpleMarker" enabled="1" locked="0" pass="0">
     <prop k="name" v="square"/>
     <prop k="color" v="255,0,255,0"/>
     <prop k="size" v="13.5"/>
     <prop k="size_unit" v="Point"/>
     <prop k="angle" v="0"/>
     <prop k="outline_color" v="255,0,255,255"/>
     <prop k="outline_style" v="solid"/>
     <prop k="outline_width" v="1.8"/>
     <prop k="outline_width_unit" v="Point"/>
     <prop k="joinstyle" v="miter"/>
    </layer>
   </symbol>
   <symbol name="8" type="marker" alpha="1" clip_to_extent="1" force_rhr="0">
    <layer class="SimpleMarker" enabled="1" locked="0" pass="0">
     <prop k="name" v="circle"/>
     <prop k="color" v="0,0,0,0"/>
     <prop k="size" v="0"/>
     <prop k="size_unit" v="Point"/>
     <prop k="angle" v="0"/>
     <prop k="outline_color" v="0,0,0,255"/>
     <prop k="outline_style" v="no"/>
     <prop k="outline_width" v="0"/>
     <prop k="outline_width_unit" v="Point"/>
     <prop k="joinstyle" v="miter"/>
    </layer>
   </symbol>
   <symbol name="9" type="marker" alpha="1" clip_to_extent="1" force_rhr="0">
    <layer class="FontMarker" enabled="1" locked="0" pass="0">
     <prop k="font" v="Wingdings"/>
     <prop k="chr" v="A"/>
     <prop k="font_style" v=""/>
     <prop k="color" v="255,255,255,255"/>
     <prop k="size" v="24"/>
     <prop k="size_unit" v="Point"/>
     <prop k="angle" v="-30"/>
     <prop k="outline_color" v="255,255,255,255"/>
     <prop k="outline_style" v="solid"/>
     <prop k="outline_width" v="4"/>
     <prop k="outline_width_unit" v="Point"/>
     <prop k="joinstyle" v="miter"/>
    </layer>
    <layer class="FontMarker" enabled="1" locked="0" pass="0">
     <prop k="font" v="Wingdings"/>
     <prop k="chr" v="A"/>
     <prop k="font_style" v=""/>
     <prop k="color" v="128,128,128,255"/>
     <prop k="size" v="24"/>
     <prop k="size_unit" v="Point"/>
     <prop k="angle" v="-30"/>
     <prop k="outline_color" v="128,128,128,255"/>
     <prop k="outline_style" v="no"/>
     <prop k="outline_width" v="0"/>
     <prop k="outline_width_unit" v="Point"/>
     <prop k="joinstyle" v="miter"/>
    </layer>
   </symbol>
   <symbol name="10" type="marker" alpha="1" clip_to_extent="1" force_rhr="0">
    <layer class="SimpleMarker" enabled="1" locked="0" pass="0">
     <prop k="name" v="circle"/>
     <prop k="color" v="0,0,0,0"/>
     <prop k="size" v="0"/>
     <prop k="size_unit" v="Point"/>
     <prop k="angle" v="0"/>
     <prop k="outline_color" v="0,0,0,255"/>
     <prop k="outline_style" v="no"/>
     <prop k="outline_width" v="0"/>
     <prop k="outline_width_unit" v="Point"/>
     <prop k="joinstyle" v="miter"/>
    </layer>
   </symbol>
   <symbol name="11" type="marker" alpha="1" clip_to_extent="1" force_rhr="0">
    <layer class="SimpleMarker" enabled="1" locked="0" pass="0">
     <prop k="name" v="circle"/>
     <prop k="color" v="0,0,0,0"/>
     <prop k="size" v="0"/>
     <prop k="size_unit" v="Point"/>
     <prop k="angle" v="0"/>
     <prop k="outline_color" v="0,0,0,255"/>
     <prop k="outline_style" v="no"/>
     <prop k="outline_width" v="0"/>
     <prop k="outline_width_unit" v="Point"/>
     <prop k="joinstyle" v="miter"/>
    </layer>
   </symbol>
   <symbol name="12" type="marker" alpha="1" clip_to_extent="1" force_rhr="0">
    <layer class="SimpleMarker" enabled="1" locked="0" pass="0">
     <prop k="name" v="circle"/>
     <prop k="color" v="255,255,255,220"/>
     <prop k="size" v="6.375"/>
     <prop k="size_unit" v="Point"/>
     <prop k="angle" v="0"/>
     <prop k="outline_color" v="255,255,255,220"/>
     <prop k="outline_style" v="no"/>
     <prop k="outline_width" v="0"/>
     <prop k="outline_width_unit" v="Point"/>
     <prop k="joinstyle" v="miter"/>
    </layer>
    <layer class="SimpleMarker" enabled="1" locked="0" pass="0">
     <prop k="name" v="circle"/>
     <prop k="color" v="38,102,153,255"/>
     <prop k="size" v="5.25"/>
     <prop k="size_unit" v="Point"/>
     <prop k="angle" v="0"/>
     <prop k="outline_color" v="38,102,153,255"/>
     <prop k="outline_style" v="no"/>
     <prop k="outline_width" v="0"/>
     <prop k="outline_width_unit" v="Point"/>
     <prop k="joinstyle" v="miter"/>
    </layer>
   </symbol>
  </symbols>
  <rotation/>
  <sizescale/>
 </renderer-v2>
 <labeling type="rule-based">
  <rules key="texts">
   <rule key="text-11" description="11" filter="&quot;style&quot; = 11">
    <settings calloutType="simple">
     <text-style fieldName="text" isExpression="0" fontFamily="Arial &amp; &lt;Sons&gt;" fontWeight="75" namedStyle="Bold Italic" fontItalic="1" fontUnderline="0" fontSize="1" fontSizeUnit="MapUnit" multilineHeight="1" textColor="18,52,86,255" textOpacity="1">
      <text-buffer bufferDraw="0" bufferSize="0.12" bufferSizeUnits="MapUnit" bufferColor="0,0,0,255" bufferOpacity="1" bufferNoFill="0"/>
      <background shapeDraw="0" shapeType="0" shapeFillColor="0,0,0,255" shapeOpacity="1" shapeBorderWidth="0"/>
     </text-style>
     <placement placement="1" quadOffset="2" xOffset="0" yOffset="0"/>
     <rendering drawLabels="1" displayAll="1" obstacle="0" scaleVisibility="0" fontLimitPixelSize="0" upsidedownLabels="2"/>
     <dd_properties>
      <Option type="Map">
       <Option name="name" type="QString" value=""/>
       <Option name="properties" type="Map">
        <Option name="Size" type="Map">
         <Option name="active" type="bool" value="true"/>
         <Option name="expression" type="QString" value="&quot;height&quot; * 0.85"/>
         <Option name="type" type="int" value="3"/>
        </Option>
        <Option name="LabelRotation" type="Map">
         <Option name="active" type="bool" value="true"/>
         <Option name="expression" type="QString" value="-&quot;angle&quot;"/>
         <Option name="type" type="int" value="3"/>
        </Option>
        <Option name="BufferSize" type="Map">
         <Option name="active" type="bool" value="true"/>
         <Option name="expression" type="QString" value="&quot;height&quot; * 0.1"/>
         <Option name="type" type="int" value="3"/>
        </Option>
       </Option>
       <Option name="type" type="QString" value="collection"/>
      </Option>
     </dd_properties>
    </settings>
   </rule>
   <rule key="text-12" description="12" filter="&quot;style&quot; = 12">
    <settings calloutType="simple">
     <text-style fieldName="text" isExpression="0" fontFamily="Arial" fontWeight="50" namedStyle="" fontItalic="0" fontUnderline="0" fontSize="1" fontSizeUnit="MapUnit" multilineHeight="1" textColor="0,0,0,255" textOpacity="1">
      <text-buffer bufferDraw="1" bufferSize="0.12" bufferSizeUnits="MapUnit" bufferColor="255,255,255,255" bufferOpacity="1" bufferNoFill="0"/>
      <background shapeDraw="0" shapeType="0" shapeFillColor="0,0,0,255" shapeOpacity="1" shapeBorderWidth="0"/>
     </text-style>
     <placement placement="1" quadOffset="2" xOffset="0" yOffset="0"/>
     <rendering drawLabels="1" displayAll="1" obstacle="0" scaleVisibility="0" fontLimitPixelSize="0" upsidedownLabels="2"/>
     <dd_properties>
      <Option type="Map">
       <Option name="name" type="QString" value=""/>
       <Option name="properties" type="Map">
        <Option name="Size" type="Map">
         <Option name="active" type="bool" value="true"/>
         <Option name="expression" type="QString" value="&quot;height&quot; * 0.85"/>
         <Option name="type" type="int" value="3"/>
        </Option>
        <Option name="LabelRotation" type="Map">
         <Option name="active" type="bool" value="true"/>
         <Option name="expression" type="QString" value="-&quot;angle&quot;"/>
         <Option name="type" type="int" value="3"/>
        </Option>
        <Option name="BufferSize" type="Map">
         <Option name="active" type="bool" value="true"/>
         <Option name="expression" type="QString" value="&quot;height&quot; * 0.1"/>
         <Option name="type" type="int" value="3"/>
        </Option>
       </Option>
       <Option name="type" type="QString" value="collection"/>
      </Option>
     </dd_properties>
    </settings>
   </rule>
  </rules>
 </labeling>
</qgis>
