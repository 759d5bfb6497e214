name replaced 90 90 90 90 90 90 90 90 90 90 90 90 90 90 90 90 90 90 90 90 90 90 90 90 90 90 90 90 90 90 90 90 90 90 90 90 90 90 90 90
= 2 not find fwkNum:90 in map, imageName:replaced,add for tmp requestIndex:0, m_OffPreReqStart:0
= 2 not find fwkNum:90 in map, imageName:replaced,add for tmp requestIndex:1, m_OffPreReqStart:0
= 2 not find fwkNum:90 in map, imageName:replaced,add for tmp requestIndex:2, m_OffPreReqStart:0
= 2 not find fwkNum:90 in map, imageName:replaced,add for tmp requestIndex:3, m_OffPreReqStart:0
= 2 not find fwkNum:90 in map, imageName:replaced,add for tmp requestIndex:4, m_OffPreReqStart:0
= 2 not find fwkNum:90 in map, imageName:replaced,add for tmp requestIndex:5, m_OffPreReqStart:0
= 2 not find fwkNum:90 in map, imageName:replaced,add for tmp requestIndex:6, m_OffPreReqStart:0
= 2 not find fwkNum:90 in map, imageName:replaced,add for tmp requestIndex:7, m_OffPreReqStart:0
= 2 not find fwkNum:90 in map, imageName:replaced,add for tmp requestIndex:8, m_OffPreReqStart:0
= 2 not find fwkNum:90 in map, imageName:replaced,add for tmp requestIndex:9, m_OffPreReqStart:0
= 2 not find fwkNum:90 in map, imageName:replaced,add for tmp requestIndex:10, m_OffPreReqStart:0
= 2 not find fwkNum:90 in map, imageName:replaced,add for tmp requestIndex:11, m_OffPreReqStart:0
= 2 not find fwkNum:90 in map, imageName:replaced,add for tmp requestIndex:12, m_OffPreReqStart:0
= 2 not find fwkNum:90 in map, imageName:replaced,add for tmp requestIndex:13, m_OffPreReqStart:0
= 2 not find fwkNum:90 in map, imageName:replaced,add for tmp requestIndex:14, m_OffPreReqStart:0
= 2 not find fwkNum:90 in map, imageName:replaced,add for tmp requestIndex:15, m_OffPreReqStart:0
= 2 not find fwkNum:90 in map, imageName:replaced,add for tmp requestIndex:16, m_OffPreReqStart:0
= 2 not find fwkNum:90 in map, imageName:replaced,add for tmp requestIndex:17, m_OffPreReqStart:0
= 2 not find fwkNum:90 in map, imageName:replaced,add for tmp requestIndex:18, m_OffPreReqStart:0
= 2 not find fwkNum:90 in map, imageName:replaced,add for tmp requestIndex:19, m_OffPreReqStart:0
= 2 not find fwkNum:90 in map, imageName:replaced,add for tmp requestIndex:20, m_OffPreReqStart:0
= 2 not find fwkNum:90 in map, imageName:replaced,add for tmp requestIndex:21, m_OffPreReqStart:0
= 2 not find fwkNum:90 in map, imageName:replaced,add for tmp requestIndex:22, m_OffPreReqStart:0
= 2 not find fwkNum:90 in map, imageName:replaced,add for tmp requestIndex:23, m_OffPreReqStart:0
= 2 not find fwkNum:90 in map, imageName:replaced,add for tmp requestIndex:24, m_OffPreReqStart:0
= 2 not find fwkNum:90 in map, imageName:replaced,add for tmp requestIndex:25, m_OffPreReqStart:0
= 2 not find fwkNum:90 in map, imageName:replaced,add for tmp requestIndex:26, m_OffPreReqStart:0
= 2 not find fwkNum:90 in map, imageName:replaced,add for tmp requestIndex:27, m_OffPreReqStart:0
= 2 not find fwkNum:90 in map, imageName:replaced,add for tmp requestIndex:28, m_OffPreReqStart:0
= 2 not find fwkNum:90 in map, imageName:replaced,add for tmp requestIndex:29, m_OffPreReqStart:0
= 2 not find fwkNum:90 in map, imageName:replaced,add for tmp requestIndex:30, m_OffPreReqStart:0
= 2 not find fwkNum:90 in map, imageName:replaced,add for tmp requestIndex:31, m_OffPreReqStart:0
= 2 not find fwkNum:90 in map, imageName:replaced,add for tmp requestIndex:32, m_OffPreReqStart:0
= 2 not find fwkNum:90 in map, imageName:replaced,add for tmp requestIndex:33, m_OffPreReqStart:0
= 2 not find fwkNum:90 in map, imageName:replaced,add for tmp requestIndex:34, m_OffPreReqStart:0
= 2 not find fwkNum:90 in map, imageName:replaced,add for tmp requestIndex:35, m_OffPreReqStart:0
= 2 not find fwkNum:90 in map, imageName:replaced,add for tmp requestIndex:36, m_OffPreReqStart:0
= 2 not find fwkNum:90 in map, imageName:replaced,add for tmp requestIndex:37, m_OffPreReqStart:0
= 2 not find fwkNum:90 in map, imageName:replaced,add for tmp requestIndex:38, m_OffPreReqStart:0
= 2 not find fwkNum:90 in map, imageName:replaced,add for tmp requestIndex:39, m_OffPreReqStart:0
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
= parked 3: fwk 90 chi 0 image 'replaced' index 3 camx
= parked 4: fwk 90 chi 0 image 'replaced' index 4 camx
= parked 5: fwk 90 chi 0 image 'replaced' index 5 camx
= parked 6: fwk 90 chi 0 image 'replaced' index 6 camx
= parked 7: fwk 90 chi 0 image 'replaced' index 7 camx
= parked 8: fwk 90 chi 0 image 'replaced' index 8 camx
= parked 9: fwk 90 chi 0 image 'replaced' index 9 camx
= parked 10: fwk 90 chi 0 image 'replaced' index 10 camx
= parked 11: fwk 90 chi 0 image 'replaced' index 11 camx
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
