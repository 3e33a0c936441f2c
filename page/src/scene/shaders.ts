/** The programs that draw faces, lines, points and labels. Colours are drawn as the file has them. */
import { MOST_GLOSSES, MOST_TIPS } from './batches';
import { EYE, LEAST_BRIGHTNESS } from './colors';
import { TIP_LENGTH, TIP_LENGTH_A_WIDTH, TIP_PARTS, TIP_STYLES } from './styles';

export const MOST_LIGHTS = 12;

/** Numbers as the programs write them. */
const float = (value: number): string => value.toFixed(3);

const HEAD = `
precision highp float;
precision highp int;
`;

/** A texture says which objects are shown, one texel an object. */
const VISIBILITY = `
uniform sampler2D shownObjects;
bool isShown(float object) {
  int i = int(object + 0.5);
  return texelFetch(shownObjects, ivec2(i & 1023, i >> 10), 0).r > 0.5;
}
const vec4 NOWHERE = vec4(2.0, 2.0, 2.0, 1.0);
`;

const CLIPPING = `
uniform vec3 clipMin;
uniform vec3 clipMax;
void clip(vec3 at) {
  if (any(lessThan(at, clipMin)) || any(greaterThan(at, clipMax))) discard;
}
`;

/** How much of a pixel lies within the box that clips, so that what is cut has smooth edges. */
const CLIPPED_COVER = `
uniform vec3 clipMin;
uniform vec3 clipMax;
float clippedCover(vec3 at) {
  vec3 dx = dFdx(at);
  vec3 dy = dFdy(at);
  vec3 pixel = max(sqrt(dx * dx + dy * dy), vec3(1e-9));
  vec3 inside = min(at - clipMin, clipMax - at) / pixel;
  return clamp(min(min(inside.x, inside.y), inside.z) + 0.5, 0.0, 1.0);
}
`;

/** Lines and points of one opacity are drawn at a time. */
const OPACITY = `
uniform vec2 opacities;
bool isMeant(float opacity) { return opacity > opacities.x && opacity < opacities.y; }
`;

/** Colours of lines and points, made lighter where the reader has a dark ground and the plot none. */
const READABLE = `
uniform vec4 ink;
vec3 readable(vec3 color) {
  const vec3 EYE = vec3(${EYE.join()});
  float missing = ${float(LEAST_BRIGHTNESS)} - dot(color, EYE);
  if (ink.a < 0.5 || missing <= 0.0) return color;
  return mix(color, ink.rgb, missing / dot(ink.rgb - color, EYE));
}
`;

/** What covers less of a pixel is not drawn. */
const COVER = `
uniform float leastCover;
`;

const CAMERA = `
uniform mat4 projectionMatrix;
uniform mat4 modelViewMatrix;
`;

/**
 * What a program for faces can do. Without clipping and patterns it leaves no pixel out, so that
 * pixels behind others need not be coloured at all.
 */
interface FaceProgram {
  smoothColors: boolean;
  smoothNormals: boolean;
  clipped: boolean;
  hatched: boolean;
}

const varying = (smooth: boolean): string => (smooth ? '' : 'flat');

export const facesVertex = ({
  smoothColors,
  smoothNormals,
}: FaceProgram): string => `${HEAD}${CAMERA}${VISIBILITY}
in vec3 position;
in vec4 normal;
in vec4 color;
in vec2 tag;
out vec3 vAt;
${varying(smoothColors)} out vec4 vColor;
${varying(smoothNormals)} out vec3 vNormal;
flat out float vLook;
void main() {
  vAt = position;
  vColor = color;
  vNormal = normal.xyz;
  vLook = tag.y;
  gl_Position = isShown(tag.x) ? projectionMatrix * modelViewMatrix * vec4(position, 1.0) : NOWHERE;
}
`;

const HATCHES = `
bool onStroke(float at) {
  float period = 7.0 * pixelRatio;
  return mod(at, period) < 1.25 * pixelRatio;
}

void hatch() {
  int pattern = int(vLook + 0.5) & 7;
  if (pattern == 0) return;
  vec2 p = gl_FragCoord.xy;
  float down = (p.x + p.y) * 0.70710678;
  float up = (p.x - p.y) * 0.70710678;
  bool stroke =
    pattern == 1 ? onStroke(p.y) :
    pattern == 2 ? onStroke(p.x) :
    pattern == 3 ? onStroke(up) :
    pattern == 4 ? onStroke(down) :
    pattern == 5 ? onStroke(p.x) || onStroke(p.y) :
    onStroke(up) || onStroke(down);
  if (!stroke) discard;
}
`;

const CLIPPED = `
  cover = clippedCover(vAt);
  if (cover < leastCover) discard;
`;

export const facesFragment = ({
  smoothColors,
  smoothNormals,
  clipped,
  hatched,
}: FaceProgram): string => `${HEAD}${clipped ? CLIPPED_COVER + COVER : ''}
uniform vec3 cameraPosition;
uniform vec3 viewDirection;
uniform bool parallel;
uniform bool lit;
uniform vec3 ambient;
uniform int lightCount;
uniform vec4 lightPositions[${MOST_LIGHTS}];
uniform vec3 lightColors[${MOST_LIGHTS}];
uniform vec4 speculars[${MOST_GLOSSES}];
uniform vec4 emissives[${MOST_GLOSSES}];
uniform float pixelRatio;
in vec3 vAt;
${varying(smoothColors)} in vec4 vColor;
${varying(smoothNormals)} in vec3 vNormal;
flat in float vLook;
out vec4 fragColor;
${hatched ? HATCHES : ''}
void main() {
  float cover = 1.0;
  ${clipped ? CLIPPED : ''}
  ${hatched ? 'hatch();' : ''}
  vec3 color = vColor.rgb;
  if (lit) {
    vec3 toEye = parallel ? -viewDirection : normalize(cameraPosition - vAt);
    vec3 n = normalize(vNormal);
    if (dot(n, toEye) < 0.0) n = -n;
    int look = int(vLook + 0.5) >> 3;
    vec4 specular = speculars[look];
    vec4 emissive = emissives[look];
    vec3 diffuse = ambient + emissive.w;
    vec3 shine = vec3(0.0);
    for (int i = 0; i < lightCount; i++) {
      vec4 position = lightPositions[i];
      vec3 toLight = normalize(position.w > 0.5 ? position.xyz - vAt : position.xyz);
      float strength = dot(n, toLight);
      if (strength <= 0.0) continue;
      diffuse += lightColors[i] * strength;
      shine += lightColors[i] * pow(max(dot(n, normalize(toLight + toEye)), 0.0), specular.w);
    }
    color = color * diffuse + specular.rgb * shine + emissive.rgb;
  }
  fragColor = vec4(min(color, vec3(1.0)), vColor.a * cover);
}
`;

const TO_PIXELS = `
uniform vec2 viewport;
uniform float pixelRatio;
vec2 toPixels(vec4 clipped) { return (clipped.xy / clipped.w * 0.5 + 0.5) * viewport; }
`;

/** Tips of arrows: their style, their length by the width of the line if they have none, their spread. */
const TIP = `
uniform vec3 tips[${MOST_TIPS}];
const float TIP_PARTS[${TIP_STYLES.length}] = float[](${TIP_STYLES.map((style) => float(TIP_PARTS[style])).join()});
vec3 tipOf(vec4 style) { return tips[int(style.z + 0.5) / 4 - 1]; }
float tipLength(vec3 tip, float width) {
  float plain = ${float(TIP_LENGTH)} + ${float(TIP_LENGTH_A_WIDTH)} * width;
  return (tip.y > 0.0 ? tip.y : plain) * pixelRatio;
}
`;

/** Lines as rectangles with round ends; positions are divided so that what varies does so evenly. */
export const linesVertex = `${HEAD}${CAMERA}${VISIBILITY}${OPACITY}${READABLE}${TO_PIXELS}${TIP}
uniform float pixelsPerUnit;
uniform float lift;
uniform bool thin;
in vec3 position;
in vec3 start;
in vec3 end;
in vec4 startColor;
in vec4 endColor;
in vec4 style;
out vec3 vAt;
out vec4 vColor;
out vec2 vPlace;
flat out float vLength;
flat out float vHalf;
flat out float vStart;
flat out float vDash;

void main() {
  vec4 a = projectionMatrix * modelViewMatrix * vec4(start, 1.0);
  vec4 b = projectionMatrix * modelViewMatrix * vec4(end, 1.0);
  bool hasTip = style.z > 3.5;
  vDash = mod(style.z, 4.0);
  bool onSurface = vDash > 2.5;
  if (onSurface) vDash = 0.0;
  vStart = style.w * pixelsPerUnit;
  if (!isShown(style.y) || !isMeant(endColor.a) || (a.w <= 0.0 && b.w <= 0.0)) {
    gl_Position = NOWHERE;
    return;
  }
  float from = 0.0;
  float to = 1.0;
  const float NEAR = 1e-3;
  if (a.w < NEAR) from = (NEAR - a.w) / (b.w - a.w);
  if (b.w < NEAR) to = (NEAR - a.w) / (b.w - a.w);
  vec4 p = mix(a, b, from);
  vec4 q = mix(a, b, to);
  vec2 pixelsA = toPixels(p);
  vec2 pixelsB = toPixels(q);
  vec2 along = pixelsB - pixelsA;
  float length = length(along);
  vec2 direction = length > 1e-4 ? along / length : vec2(1.0, 0.0);
  float halfWidth = max(style.x * pixelRatio, 1.0) * 0.5;
  if (hasTip) {
    vec3 tip = tipOf(style);
    float part = TIP_PARTS[int(tip.x + 0.5)];
    float back = min(tipLength(tip, style.x) * part, length);
    pixelsB -= direction * back;
    length -= back;
  }
  bool atEnd = position.x > 0.5;
  vec4 clipped = atEnd ? q : p;
  vec2 pixels = atEnd ? pixelsB : pixelsA;
  // Room for edges that fade out.
  float reach = halfWidth + 1.0;
  if (!thin) {
    pixels += (atEnd ? direction : -direction) * reach;
    pixels += vec2(-direction.y, direction.x) * position.y * reach;
  }
  vColor = atEnd ? endColor : startColor;
  if (!onSurface) vColor.rgb = readable(vColor.rgb);
  vAt = mix(start, end, atEnd ? to : from);
  vPlace = vec2(atEnd ? length + reach : -reach, position.y * reach);
  vLength = length;
  vHalf = halfWidth;
  vec2 ndc = pixels / viewport * 2.0 - 1.0;
  gl_Position = vec4(ndc, clipped.z / clipped.w - lift, 1.0);
}
`;

export const linesFragment = `${HEAD}${CLIPPED_COVER}${COVER}
uniform bool thin;
in vec3 vAt;
in vec4 vColor;
in vec2 vPlace;
flat in float vLength;
flat in float vHalf;
flat in float vStart;
flat in float vDash;
out vec4 fragColor;
/** How far a place along a dashed line lies within a dash. */
float inDash(float at, float on, float period) {
  float place = mod(at, period);
  return min(place, on - place);
}

void main() {
  float within = clippedCover(vAt);
  float inside = 1.0;
  if (!thin) {
    float beyond = vPlace.x < 0.0 ? vPlace.x : max(vPlace.x - vLength, 0.0);
    inside = vHalf - length(vec2(beyond, vPlace.y));
    float unit = max(vHalf * 2.0, 1.5);
    float at = vStart + clamp(vPlace.x, 0.0, vLength);
    if (vDash > 1.5) inside = min(inside, inDash(at, unit * 1.2, unit * 3.0));
    else if (vDash > 0.5) inside = min(inside, inDash(at, unit * 5.0, unit * 8.0));
  }
  float cover = min(clamp(inside + 0.5, 0.0, 1.0), within);
  if (cover < leastCover) discard;
  fragColor = vec4(vColor.rgb, cover);
}
`;

/** Tips of arrows: triangles that face the viewer, larger than the tip by the width of its pen. */
export const tipsVertex = `${HEAD}${CAMERA}${VISIBILITY}${OPACITY}${READABLE}${TO_PIXELS}${TIP}
uniform float lift;
in vec3 position;
in vec3 start;
in vec3 end;
in vec4 endColor;
in vec4 style;
out vec3 vAt;
out vec4 vColor;
/** Pixels back from the point of the tip, and to the side. */
out vec2 vPlace;
flat out float vStyle;
flat out float vSize;
flat out float vSpread;
flat out float vPen;
void main() {
  vec4 a = projectionMatrix * modelViewMatrix * vec4(start, 1.0);
  vec4 b = projectionMatrix * modelViewMatrix * vec4(end, 1.0);
  if (!isShown(style.y) || !isMeant(endColor.a) || style.z < 3.5 || a.w <= 0.0 || b.w <= 0.0) {
    gl_Position = NOWHERE;
    return;
  }
  vec3 tip = tipOf(style);
  vec2 point = toPixels(b);
  vec2 along = point - toPixels(a);
  float length = length(along);
  vec2 direction = length > 1e-4 ? along / length : vec2(1.0, 0.0);
  vStyle = tip.x;
  vSize = min(tipLength(tip, style.x), max(length, 2.0));
  vSpread = tip.z;
  vPen = max(style.x * pixelRatio, 1.0);
  float room = vPen + 1.0;
  float ahead = room / sin(atan(tip.z));
  vPlace = vec2(-ahead + (vSize + room + ahead) * position.x, 0.0);
  vPlace.y = (vPlace.x + ahead) * tip.z * position.y;
  vec2 pixels = point - direction * vPlace.x + vec2(-direction.y, direction.x) * vPlace.y;
  vAt = end;
  vColor = vec4(readable(endColor.rgb), endColor.a);
  gl_Position = vec4(pixels / viewport * 2.0 - 1.0, b.z / b.w - lift, 1.0);
}
`;

export const tipsFragment = `${HEAD}${CLIPPING}${COVER}
in vec3 vAt;
in vec4 vColor;
in vec2 vPlace;
flat in float vStyle;
flat in float vSize;
flat in float vSpread;
flat in float vPen;
out vec4 fragColor;
void main() {
  clip(vAt);
  float toSide = (vPlace.x * vSpread - abs(vPlace.y)) / sqrt(1.0 + vSpread * vSpread);
  float toBase = vSize - vPlace.x;
  float inside = min(toSide, toBase);
  float pen = vPen * 0.5;
  float cover = vStyle < 0.5 ? inside : vStyle < 1.5 ? min(pen - abs(toSide), toBase) : pen - abs(inside);
  float alpha = clamp(cover + 0.5, 0.0, 1.0);
  if (alpha < leastCover) discard;
  fragColor = vec4(vColor.rgb, alpha);
}
`;

export const pointsVertex = `${HEAD}${CAMERA}${VISIBILITY}${OPACITY}${READABLE}
uniform float pixelRatio;
uniform float lift;
in vec3 position;
in vec4 color;
in vec3 tag;
out vec3 vAt;
out vec4 vColor;
flat out float vRadius;
/** Half the side of the square that is drawn. */
flat out float vReach;
flat out float vStyle;
void main() {
  vAt = position;
  vColor = vec4(readable(color.rgb), color.a);
  vStyle = tag.z;
  vRadius = max(tag.x * pixelRatio, 0.6);
  bool isDiamond = vStyle > 3.5 && vStyle < 5.5;
  vReach = vRadius * (isDiamond ? 1.25 : 1.0) + 1.0;
  gl_PointSize = vReach * 2.0;
  vec4 clipped = projectionMatrix * modelViewMatrix * vec4(position, 1.0);
  clipped.z -= lift * clipped.w;
  gl_Position = isShown(tag.y) && isMeant(color.a) ? clipped : NOWHERE;
}
`;

export const pointsFragment = `${HEAD}${CLIPPING}${COVER}
uniform float pixelRatio;
in vec3 vAt;
in vec4 vColor;
flat in float vRadius;
flat in float vReach;
flat in float vStyle;
out vec4 fragColor;

/** Distance to the sign of a point in pixels, below 0 inside. */
float outside(vec2 p) {
  float square = max(abs(p.x), abs(p.y)) - vRadius * 0.886;
  float diamond = (abs(p.x) + abs(p.y) - vRadius * 1.25) * 0.70710678;
  float circle = length(p) - vRadius;
  float pen = max(0.7 * pixelRatio, vRadius * 0.18);
  float cross = min(abs(p.x), abs(p.y)) - pen;
  vec2 turned = vec2(p.x + p.y, p.x - p.y) * 0.70710678;
  float slanted = min(abs(turned.x), abs(turned.y)) - pen;
  int style = int(vStyle + 0.5);
  if (style == 0) return circle;
  if (style == 1) return abs(circle + pen) - pen;
  if (style == 2) return square;
  if (style == 3) return abs(square + pen) - pen;
  if (style == 4) return diamond;
  if (style == 5) return abs(diamond + pen) - pen;
  if (style == 6) return max(cross, circle);
  if (style == 7) return max(slanted, circle);
  return max(min(cross, slanted), circle);
}

void main() {
  clip(vAt);
  vec2 p = (gl_PointCoord - 0.5) * (vReach * 2.0);
  float cover = clamp(0.5 - outside(p), 0.0, 1.0);
  if (cover < leastCover) discard;
  fragColor = vec4(vColor.rgb, cover);
}
`;

/** Labels: rectangles out of a picture of all texts, laid on whole pixels. */
export const labelsVertex = `${HEAD}${CAMERA}${VISIBILITY}${TO_PIXELS}
uniform float lift;
in vec3 position;
in vec3 at;
in vec4 box;
in vec4 source;
in float object;
out vec3 vAt;
out vec2 vSource;
void main() {
  vec4 clipped = projectionMatrix * modelViewMatrix * vec4(at, 1.0);
  vAt = at;
  vSource = mix(source.xy, source.zw, position.xy);
  vec2 corner = floor(toPixels(clipped) + box.xy + 0.5) + position.xy * box.zw;
  bool shown = clipped.w > 0.0 && isShown(object);
  gl_Position = shown
    ? vec4(corner / viewport * 2.0 - 1.0, clipped.z / clipped.w - lift, 1.0)
    : NOWHERE;
}
`;

export const labelsFragment = `${HEAD}${CLIPPING}
uniform sampler2D texts;
in vec3 vAt;
in vec2 vSource;
out vec4 fragColor;
void main() {
  clip(vAt);
  fragColor = texture(texts, vSource);
  if (fragColor.a < 0.004) discard;
}
`;

/** For what covers the whole picture. */
export const pictureVertex = `${HEAD}
in vec2 position;
out vec2 vPlace;
void main() {
  vPlace = position;
  gl_Position = vec4(position, 0.0, 1.0);
}
`;

/** Places are -1 to 1 from left to right and from bottom to top. */
export const backdropFragment = `${HEAD}
uniform vec3 first;
uniform vec3 second;
uniform int kind;
in vec2 vPlace;
out vec4 fragColor;
void main() {
  float part =
    kind == 1 ? vPlace.x * 0.5 + 0.5 :
    kind == 2 ? 0.5 - vPlace.y * 0.5 :
    kind == 3 ? 1.0 - max(abs(vPlace.x), abs(vPlace.y)) :
    0.0;
  fragColor = vec4(mix(first, second, part), 1.0);
}
`;

export const copyFragment = `${HEAD}
uniform sampler2D picture;
out vec4 fragColor;
void main() { fragColor = texelFetch(picture, ivec2(gl_FragCoord.xy), 0); }
`;
