name replaced 90 90 90 90 90 90 90 90 90 90 90 90 90 90 90 90 90 90 90 90 90 90 90 90 90 90 90 90 90 90 90 90 90 90 90 90 90 90 90 90
repeat 0 39
= 2 not find fwkNum:90 in map, imageName:replaced,add for tmp requestIndex:{n}, m_OffPreReqStart:0
end
name null 1 1 1 1
name empty 1 1 1 1
offset 100
name IMG 107 107 8
= 2 not find fwkNum:107 in map, imageName:IMG,add for tmp requestIndex:0, m_OffPreReqStart:100
= 2 not find fwkNum:107 in map, imageName:IMG,add for tmp requestIndex:1, m_OffPreReqStart:100
= 2 not find fwkNum:8 in map, imageName:IMG,add for tmp requestIndex:2, m_OffPreReqStart:100
slots
= parked 0: fwk 7 chi 0 image 'IMG' index 0 camx
= parked 1: fwk 7 chi 0 image 'IMG' index 1 camx
= parked 2: fwk 8 chi 0 image 'IMG' index 2 camx
repeat 3 11
= parked {n}: fwk 90 chi 0 image 'replaced' index {n} camx
end
files
(enqueue 8 11)
enqueue 7 11
= 2 Request Map Not FULL for fwkID:8
= 2 add request fwkID:7<==>chiID:11<==>imgName:IMG<==>index:2
= 2 add request fwkID:7<==>chiID:11<==>index:2
enqueue 7 11
= 2 Request Map Not FULL for fwkID:7
= 2 add request fwkID:7<==>chiID:11<==>imgName:IMG<==>index:3
= 2 add request fwkID:7<==>chiID:11<==>index:3
enqueue 7 11
= 2 Request Map Not FULL for fwkID:7
= 2 add request fwkID:7<==>chiID:11<==>index:4
enqueue 90 11
= 2 Request Map Not FULL for fwkID:7
= 2 add request fwkID:90<==>chiID:11<==>imgName:replaced<==>index:5
= 2 add request fwkID:90<==>chiID:11<==>index:5
enqueue 0 11
= 2 Request Map Not FULL for fwkID:90
= 2 add request fwkID:0<==>chiID:11<==>imgName:<==>index:6
= 2 add request fwkID:0<==>chiID:11<==>index:6
enqueue 6 11
= 2 Request Map Not FULL for fwkID:0
= 2 add request fwkID:6<==>chiID:11<==>index:7
slots
= slot 1: fwk 8 chi 11 image 'IMG' index 2 camx
= slot 2: fwk 7 chi 11 image 'IMG' index 0 camx
= slot 3: fwk 7 chi 11 image 'IMG' index 1 camx
= slot 5: fwk 90 chi 11 image 'replaced' index 3 camx
= parked 4: fwk 90 chi 0 image 'replaced' index 4 camx
= parked 5: fwk 90 chi 0 image 'replaced' index 5 camx
= parked 6: fwk 90 chi 0 image 'replaced' index 6 camx
= parked 7: fwk 90 chi 0 image 'replaced' index 7 camx
= parked 8: fwk 90 chi 0 image 'replaced' index 8 camx
= parked 9: fwk 90 chi 0 image 'replaced' index 9 camx
= parked 10: fwk 90 chi 0 image 'replaced' index 10 camx
= parked 11: fwk 90 chi 0 image 'replaced' index 11 camx
files
repeat 4 11
(enqueue 90 11)
end
slots
= slot 1: fwk 8 chi 11 image 'IMG' index 2 camx
= slot 2: fwk 7 chi 11 image 'IMG' index 0 camx
= slot 3: fwk 7 chi 11 image 'IMG' index 1 camx
= slot 5: fwk 90 chi 11 image 'replaced' index 3 camx
repeat 4 11
= slot {n+4}: fwk 90 chi 11 image 'replaced' index {n} camx
end
