// The value of a level, from 0 to 1.
//
// nLevel is how many levels a colour has; fLargest the largest sample of the processor's arithmetic,
// 255 or 65535. Both are whole numbers, and so is all that counts below: what is added before a
// division is less than the smallest step, and keeps floor() on the right side of a whole result.
uniform int nLevel;
uniform float fLargest;

vec3 valueOfLevel(vec3 k) {
    float top = float(nLevel - 1);
    float halfTop = floor(top / 2.0);
    return floor((k * fLargest + halfTop + 0.25) / top) / fLargest;
}
